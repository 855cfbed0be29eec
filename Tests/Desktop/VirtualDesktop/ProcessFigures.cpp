#include "VirtualDesktop/ProcessFigures.hpp"

#include "VirtualDesktop/Waiting.hpp"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace vireline::desktop {
namespace {

std::filesystem::path folderOf(pid_t pid) {
    return std::filesystem::path{"/proc"} / std::to_string(pid);
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

long contextSwitches(pid_t pid) {
    constexpr std::string_view key = "ctxt_switches:";
    long total = 0;
    for (const auto& thread : std::filesystem::directory_iterator{folderOf(pid) / "task"}) {
        std::ifstream file{thread.path() / "status"};
        for (std::string line; std::getline(file, line);) {
            if (const auto name = line.find(key); name != std::string::npos)
                total += std::strtol(line.c_str() + name + key.size(), nullptr, 10);
        }
    }
    return total;
}

bool comesToRest(pid_t pid, std::chrono::milliseconds calm) {
    return eventually([&] {
        const long before = contextSwitches(pid);
        std::this_thread::sleep_for(calm);
        return contextSwitches(pid) == before;
    });
}

}
