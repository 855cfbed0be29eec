// What is built here is for the processor that it is built on.
#pragma once
#if defined(__aarch64__)
#define TARGET_CPU_ARM64 1
#else
#define TARGET_CPU_ARM64 0
#endif
