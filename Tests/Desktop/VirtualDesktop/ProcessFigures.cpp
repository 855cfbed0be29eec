#include "VirtualDesktop/ProcessFigures.hpp"

#include "VirtualDesktop/Waiting.hpp"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vireline::desktop {
namespace {

std::filesystem::path folderOf(pid_t pid) {
    return std::filesystem::path{"/proc"} / std::to_string(pid);
}

/// Nothing for a thread that has just ended.
std::optional<long> switchesOf(const std::filesystem::path& thread) {
    constexpr std::string_view key = "ctxt_switches:";
    std::optional<long> sum;
    std::ifstream file{thread / "status"};
    for (std::string line; std::getline(file, line);) {
        if (const auto name = line.find(key); name != std::string::npos)
            sum = sum.value_or(0) + std::strtol(line.c_str() + name + key.size(), nullptr, 10);
    }
    return sum;
}

}

std::chrono::duration<double, std::milli> processorTime(pid_t pid) {
    std::ifstream file{folderOf(pid) / "stat"};
    std::string line;
    std::getline(file, line);
    // The name may hold anything, blanks and brackets too; the numbers begin behind it.
    std::istringstream fields{line.substr(line.rfind(')') + 1)};
    constexpr int fieldsBefore = 11;
    std::string skipped;
    for (int i = 0; i < fieldsBefore; ++i)
        fields >> skipped;
    double user = 0;
    double system = 0;
    fields >> user >> system;
    if (!fields)
        throw std::runtime_error{"the kernel tells no times of the process"};
    constexpr double perSecond = 1000;
    return std::chrono::duration<double, std::milli>{(user + system) * perSecond /
                                                     static_cast<double>(sysconf(_SC_CLK_TCK))};
}

long kilobytes(pid_t pid, std::string_view key) {
    std::ifstream file{folderOf(pid) / "smaps_rollup"};
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(key))
            return std::strtol(line.c_str() + key.size(), nullptr, 10);
    }
    throw std::runtime_error{"the kernel tells no memory of the process"};
}

ContextSwitches::ContextSwitches(pid_t pid) : pid_(pid) {
    look();
    before_ = total();
}

long ContextSwitches::count() {
    look();
    return total() - before_;
}

void ContextSwitches::look() {
    for (const auto& thread : std::filesystem::directory_iterator{folderOf(pid_) / "task"}) {
        if (const auto switches = switchesOf(thread.path()))
            threads_[thread.path().filename()] = *switches;
    }
}

long ContextSwitches::total() const {
    long sum = 0;
    for (const auto& [thread, switches] : threads_)
        sum += switches;
    return sum;
}

bool comesToRest(pid_t pid, std::chrono::milliseconds calm) {
    return eventually([&] {
        ContextSwitches switches{pid};
        std::this_thread::sleep_for(calm);
        return switches.count() == 0;
    });
}

}
