// The build's target is always the processor that it runs on.
#pragma once
#if defined(__aarch64__)
#define TARGET_CPU_ARM64 1
#else
#define TARGET_CPU_ARM64 0
#endif
