// Quality-of-service classes of threads; ignored here.
#pragma once

enum qos_class_t { QOS_CLASS_USER_INTERACTIVE = 0x21 };

inline int pthread_set_qos_class_self_np(qos_class_t, int) {
    return 0;
}
