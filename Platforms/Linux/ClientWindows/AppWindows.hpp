/// Which of an app's windows a process has, and which of them is its main one.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline::x11::AppWindows {

/// The ordinary windows of that process, in the order given. Windows often do not say whose they
/// are: those of an unknown process, or of one that has none here, are all of the app's.
[[nodiscard]] std::vector<ClientWindow> ofProcess(std::span<const ClientWindow> windows,
                                                  std::int32_t processIdentifier);

/// The normal window that was active last; of those that never were, the newest.
[[nodiscard]] std::optional<ClientWindow> mainWindow(std::span<const ClientWindow> windows);

}
