#include "Applications/Launching/LaunchEnvironment.hpp"

#include "Files/BoundedFile.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>

namespace vireline::xdg::LaunchEnvironment {
namespace {

constexpr std::size_t maximumBytes = 4UL << 20U;

constexpr std::array<std::string_view, 5> ownStart{
    "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "DESKTOP_AUTOSTART_ID",
    "GIO_LAUNCHED_DESKTOP_FILE", "GIO_LAUNCHED_DESKTOP_FILE_PID"};

void take(Variables& variables, std::string_view assignment) {
    const std::size_t equals = assignment.find('=');
    if (equals != std::string_view::npos && equals > 0)
        variables.try_emplace(std::string{assignment.substr(0, equals)},
                              assignment.substr(equals + 1));
}

Variables currentVariables() {
    Variables variables;
    for (char* const* variable = environ; variable != nullptr && *variable != nullptr; ++variable)
        take(variables, *variable);
    return variables;
}

}

Variables parse(std::string_view block) {
    Variables variables;
    while (!block.empty()) {
        const std::size_t end = std::min(block.find('\0'), block.size());
        take(variables, block.substr(0, end));
        block.remove_prefix(std::min(end + 1, block.size()));
    }
    return variables;
}

std::vector<Change> restoring(const Variables& initial, const Variables& current) {
    std::vector<Change> changes;
    const auto isOwn = [](std::string_view name) {
        return std::ranges::find(ownStart, name) != ownStart.end();
    };
    for (const auto& [name, value] : initial) {
        const auto now = current.find(name);
        if (!isOwn(name) && (now == current.end() || now->second != value))
            changes.push_back({name, value});
    }
    for (const auto& [name, value] : current) {
        if (!isOwn(name) && !initial.contains(name))
            changes.push_back({name, std::nullopt});
    }
    for (const std::string_view name : ownStart)
        changes.push_back({std::string{name}, std::nullopt});
    return changes;
}

std::vector<Change> changes() {
    const auto current = currentVariables();
    // The kernel keeps the environment block that the program was started with.
    auto initial = parse(BoundedFile::readStart("/proc/self/environ", maximumBytes));
    return restoring(initial.empty() ? current : initial, current);
}

}
