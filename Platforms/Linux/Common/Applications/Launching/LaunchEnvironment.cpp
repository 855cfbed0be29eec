#include "Applications/Launching/LaunchEnvironment.hpp"

#include "Files/BoundedFile.hpp"

#include <algorithm>
#include <array>

namespace vireline::xdg::LaunchEnvironment {
namespace {

constexpr std::size_t maximumBytes = 4UL << 20U;

/// The variables that this program sets in its own process.
constexpr std::array<std::string_view, 4> setHere{"DBUS_FATAL_WARNINGS", "DBUS_SESSION_BUS_ADDRESS",
                                                  "QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT",
                                                  "QT_WAYLAND_DISABLE_FIXED_POSITIONS"};

constexpr std::array<std::string_view, 5> ownStart{
    "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN", "DESKTOP_AUTOSTART_ID",
    "GIO_LAUNCHED_DESKTOP_FILE", "GIO_LAUNCHED_DESKTOP_FILE_PID"};

std::optional<std::string> valueOf(std::string_view name, std::string_view block) {
    while (!block.empty()) {
        const std::string_view variable = block.substr(0, block.find('\0'));
        if (variable.starts_with(name) && variable.substr(name.size()).starts_with('='))
            return std::string{variable.substr(name.size() + 1)};
        block.remove_prefix(std::min(variable.size() + 1, block.size()));
    }
    return std::nullopt;
}

}

std::vector<Change> restoring(std::string_view initial) {
    std::vector<Change> changes;
    changes.reserve(setHere.size() + ownStart.size());
    for (const std::string_view name : setHere)
        changes.push_back({std::string{name}, valueOf(name, initial)});
    for (const std::string_view name : ownStart)
        changes.push_back({std::string{name}, std::nullopt});
    return changes;
}

std::vector<Change> changes() {
    // The kernel keeps the environment block that the program was started with.
    return restoring(BoundedFile::readStart("/proc/self/environ", maximumBytes));
}

}
