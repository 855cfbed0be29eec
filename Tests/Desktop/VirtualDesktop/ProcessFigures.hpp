/// What the kernel tells of a running process: its processor time, its memory, how often it ran.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <string>
#include <string_view>

namespace vireline::desktop {

/// User and system time of all threads so far, those that have ended included.
[[nodiscard]] std::chrono::duration<double, std::milli> processorTime(pid_t pid);

/// A number of kilobytes from the sum over all of the process's mappings, such as "Pss:". Throws
/// when the kernel does not tell.
[[nodiscard]] long kilobytes(pid_t pid, std::string_view key);

/// Counts the context switches of all threads of a process since then: one that sleeps makes none.
class ContextSwitches {
public:
    explicit ContextSwitches(pid_t pid);

    /// A thread that has ended counts with what the last look at it found, so that the number never
    /// shrinks.
    [[nodiscard]] long count();

private:
    void look();
    [[nodiscard]] long total() const;

    pid_t pid_;
    long before_ = 0;
    /// By the thread's number; what each had when it was seen last.
    std::map<std::string, long> threads_;
};

/// Returns once the process has not run for `calm`; false when it does not come to rest.
[[nodiscard]] bool comesToRest(pid_t pid, std::chrono::milliseconds calm);

}
