/// Selects an app's windows by process, and finds its main window.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline::xdg::AppWindows {

/// The ordinary windows of that process, in the given order. Many windows do not name their
/// process, so for an unknown process, or one without windows here, all of the app's ordinary
/// windows are returned.
[[nodiscard]] std::vector<ClientWindow> ofProcess(std::span<const ClientWindow> windows,
                                                  std::int32_t processIdentifier);

/// The most recently active normal window; if none was ever active, the newest.
[[nodiscard]] std::optional<ClientWindow> mainWindow(std::span<const ClientWindow> windows);

/// The ordinary windows, most recently active first; those that never were active follow, newest
/// first. `windows` are in the window system's order, oldest first.
[[nodiscard]] std::vector<ClientWindow> latestFirst(std::span<const ClientWindow> windows);

}
