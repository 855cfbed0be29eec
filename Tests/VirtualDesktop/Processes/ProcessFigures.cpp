#include "VirtualDesktop/Processes/ProcessFigures.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"

#include <charconv>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;

fs::path folderOf(pid_t pid) {
    return fs::path{"/proc"} / std::to_string(pid);
}

/// nullopt for a thread that has just exited.
std::optional<long> switchesOf(const fs::path& thread) {
    constexpr std::string_view key = "ctxt_switches:";
    std::optional<long> sum;
    std::ifstream file{thread / "status"};
    for (std::string line; std::getline(file, line);) {
        if (const auto name = line.find(key); name != std::string::npos)
            sum = sum.value_or(0) + std::strtol(line.c_str() + name + key.size(), nullptr, 10);
    }
    return sum;
}

/// From the process's own clock, because /proc has a resolution of ticks. nullopt for a process
/// that has exited.
std::optional<ProcessorTime> timeOf(pid_t pid) {
    clockid_t clock = 0;
    timespec time{};
    if (clock_getcpuclockid(pid, &clock) != 0 || clock_gettime(clock, &time) != 0)
        return std::nullopt;
    return std::chrono::seconds{time.tv_sec} + std::chrono::nanoseconds{time.tv_nsec};
}

/// nullopt if the kernel does not provide it.
std::optional<long> memoryOf(pid_t pid, std::string_view key) {
    std::ifstream file{folderOf(pid) / "smaps_rollup"};
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(key))
            return std::strtol(line.c_str() + key.size(), nullptr, 10);
    }
    return std::nullopt;
}

/// The time that the process's main thread has spent waiting for a processor.
std::chrono::nanoseconds queueingOf(pid_t pid) {
    std::ifstream statistics{folderOf(pid) / "task" / std::to_string(pid) / "schedstat"};
    long long running = 0;
    long long waiting = 0;
    statistics >> running >> waiting;
    return std::chrono::nanoseconds{waiting};
}

/// The leader of the process's session; 0 for a process that has exited.
pid_t leaderOf(pid_t pid) {
    std::ifstream file{folderOf(pid) / "stat"};
    std::string line;
    if (!std::getline(file, line))
        return 0;
    // The name may contain anything, including blanks and brackets; the fields come after it.
    std::istringstream fields{line.substr(line.rfind(')') + 1)};
    char state = 0;
    pid_t parent = 0;
    pid_t group = 0;
    pid_t leader = 0;
    fields >> state >> parent >> group >> leader;
    return leader;
}

}

ProcessorTime processorTime(pid_t pid) {
    if (const auto time = timeOf(pid))
        return *time;
    throw std::runtime_error{"the kernel tells no times of the process"};
}

ProcessorTime processorTime(std::span<const pid_t> pids) {
    ProcessorTime sum{};
    for (const pid_t pid : pids)
        sum += timeOf(pid).value_or(ProcessorTime{});
    return sum;
}

std::vector<pid_t> sessionOf(pid_t leader) {
    std::vector<pid_t> found;
    for (const auto& entry : fs::directory_iterator{"/proc"}) {
        const std::string name = entry.path().filename();
        pid_t pid = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), pid);
        if (error == std::errc{} && end == name.data() + name.size() && leaderOf(pid) == leader)
            found.push_back(pid);
    }
    return found;
}

long kilobytes(pid_t pid, std::string_view key) {
    if (const auto memory = memoryOf(pid, key))
        return *memory;
    throw std::runtime_error{"the kernel tells no memory of the process"};
}

long kilobytes(std::span<const pid_t> pids, std::string_view key) {
    long sum = 0;
    for (const pid_t pid : pids)
        sum += memoryOf(pid, key).value_or(0);
    return sum;
}

UndisturbedTime::UndisturbedTime(std::vector<pid_t> participants)
    : participants_(std::move(participants))
    , queued_(queueing())
    , start_(std::chrono::steady_clock::now()) {}

UndisturbedTime::Milliseconds UndisturbedTime::elapsed() const {
    const Milliseconds elapsed = std::chrono::steady_clock::now() - start_;
    return elapsed - Milliseconds{queueing() - queued_};
}

std::chrono::nanoseconds UndisturbedTime::queueing() const {
    std::chrono::nanoseconds sum{0};
    for (const pid_t pid : participants_)
        sum += queueingOf(pid);
    return sum;
}

ContextSwitches::ContextSwitches(std::vector<pid_t> pids) : pids_(std::move(pids)) {
    look();
    before_ = total();
}

long ContextSwitches::count() {
    look();
    return total() - before_;
}

void ContextSwitches::look() {
    for (const pid_t pid : pids_) {
        std::error_code gone;
        for (const auto& thread : fs::directory_iterator{folderOf(pid) / "task", gone}) {
            if (const auto switches = switchesOf(thread.path()))
                threads_[thread.path().filename()] = *switches;
        }
    }
}

long ContextSwitches::total() const {
    long sum = 0;
    for (const auto& [thread, switches] : threads_)
        sum += switches;
    return sum;
}

bool comesToRest(const std::vector<pid_t>& pids, std::chrono::milliseconds calm) {
    return eventually([&] {
        ContextSwitches switches{pids};
        std::this_thread::sleep_for(calm);
        return switches.count() == 0;
    });
}

}
