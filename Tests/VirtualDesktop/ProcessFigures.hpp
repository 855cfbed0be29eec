/// What the kernel tells of running processes: their processor time, their memory, how often they
/// ran.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

using ProcessorTime = std::chrono::duration<double, std::milli>;

/// User and system time of all threads so far, those that have ended included.
[[nodiscard]] ProcessorTime processorTime(pid_t pid);

/// All processes of the session that `leader` began, itself included, as long as they run.
[[nodiscard]] std::vector<pid_t> sessionOf(pid_t leader);

/// Of all of them together; what has ended counts with nothing.
[[nodiscard]] ProcessorTime processorTime(std::span<const pid_t> pids);

/// A number of kilobytes from the sum over all of the process's mappings, such as "Pss:". Throws
/// when the kernel does not tell.
[[nodiscard]] long kilobytes(pid_t pid, std::string_view key);

/// Of all of them together; what has ended counts with nothing.
[[nodiscard]] long kilobytes(std::span<const pid_t> pids, std::string_view key);

/// Counts the context switches of all threads of processes since then: one that sleeps makes none.
class ContextSwitches {
public:
    explicit ContextSwitches(pid_t pid) : ContextSwitches(std::vector{pid}) {}
    explicit ContextSwitches(std::vector<pid_t> pids);

    /// A thread that has ended counts with what the last look at it found, so that the number never
    /// shrinks.
    [[nodiscard]] long count();

private:
    void look();
    [[nodiscard]] long total() const;

    std::vector<pid_t> pids_;
    long before_ = 0;
    /// By the thread's number; what each had when it was seen last.
    std::map<std::string, long> threads_;
};

/// Returns once none of the processes has run for `calm`; false when they do not come to rest.
[[nodiscard]] bool comesToRest(const std::vector<pid_t>& pids, std::chrono::milliseconds calm);
[[nodiscard]] inline bool comesToRest(pid_t pid, std::chrono::milliseconds calm) {
    return comesToRest(std::vector{pid}, calm);
}

}
