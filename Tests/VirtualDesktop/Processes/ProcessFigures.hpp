/// The kernel's figures about running processes: processor time, memory and context switches.
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

/// User and system time of all threads so far, including those that have exited.
[[nodiscard]] ProcessorTime processorTime(pid_t pid);

/// All running processes in the session of `leader`, including itself.
[[nodiscard]] std::vector<pid_t> sessionOf(pid_t leader);

/// The sum over all of them; processes that have exited count as nothing.
[[nodiscard]] ProcessorTime processorTime(std::span<const pid_t> pids);

/// A number of kilobytes from the totals of the process's mappings, such as "Pss:". Throws if the
/// kernel does not provide it.
[[nodiscard]] long kilobytes(pid_t pid, std::string_view key);

/// The sum over all of them; processes that have exited count as nothing.
[[nodiscard]] long kilobytes(std::span<const pid_t> pids, std::string_view key);

/// Measures how long something takes. Time that the main threads of the participating processes
/// spent waiting for a busy processor is subtracted.
class UndisturbedTime {
public:
    using Milliseconds = std::chrono::duration<double, std::milli>;

    explicit UndisturbedTime(std::vector<pid_t> participants);

    /// The time since this object was constructed.
    [[nodiscard]] Milliseconds elapsed() const;

private:
    [[nodiscard]] std::chrono::nanoseconds queueing() const;

    std::vector<pid_t> participants_;
    std::chrono::nanoseconds queued_;
    std::chrono::steady_clock::time_point start_;
};

/// Counts the context switches of all threads from now on; sleeping threads make none.
class ContextSwitches {
public:
    explicit ContextSwitches(pid_t pid) : ContextSwitches(std::vector{pid}) {}
    explicit ContextSwitches(std::vector<pid_t> pids);

    /// A thread that has exited counts with its last known number, so the result never decreases.
    [[nodiscard]] long count();

private:
    void look();
    [[nodiscard]] long total() const;

    std::vector<pid_t> pids_;
    long before_ = 0;
    /// The last known number for each thread ID.
    std::map<std::string, long> threads_;
};

/// Returns true once none of the processes has run for `calm`; false if that does not happen.
[[nodiscard]] bool comesToRest(const std::vector<pid_t>& pids, std::chrono::milliseconds calm);
[[nodiscard]] inline bool comesToRest(pid_t pid, std::chrono::milliseconds calm) {
    return comesToRest(std::vector{pid}, calm);
}

}
