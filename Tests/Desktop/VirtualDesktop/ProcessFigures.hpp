/// What the kernel tells of a running process: its processor time, its memory, how often it ran.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string_view>

namespace vireline::desktop {

/// User and system time of all threads so far, those that have ended included.
[[nodiscard]] std::chrono::duration<double, std::milli> processorTime(pid_t pid);

/// A number of kilobytes from the sum over all of the process's mappings, such as "Pss:". Throws
/// when the kernel does not tell.
[[nodiscard]] long kilobytes(pid_t pid, std::string_view key);

/// All context switches of all threads so far: a process that sleeps makes none.
[[nodiscard]] long contextSwitches(pid_t pid);

/// Returns once the process has not run for `calm`; false when it does not come to rest.
[[nodiscard]] bool comesToRest(pid_t pid, std::chrono::milliseconds calm);

}
