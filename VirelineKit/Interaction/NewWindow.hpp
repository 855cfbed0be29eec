/// Finds an app's action that opens a new window.
#pragma once

#include "Platform/Applications/ApplicationCatalog.hpp"

#include <optional>
#include <span>
#include <string>

namespace vireline::NewWindow {

/// The action "new-window", however it is capitalised and hyphenated; nullopt if there is none.
[[nodiscard]] std::optional<std::string>
action(std::span<const ApplicationCatalog::Action> actions);

}
