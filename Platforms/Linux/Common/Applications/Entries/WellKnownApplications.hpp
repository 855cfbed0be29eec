/// The ten apps that the docks show if the desktop has no list of pinned apps.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg::WellKnownApplications {

inline constexpr std::size_t count = 10;

/// A common use of a desktop: the content types whose handlers the user may have chosen, and common
/// programs for it where no handler is set.
struct Role {
    std::string_view contentType;
    std::span<const std::string_view> commonIDs;
};

/// In the order of the dock, the file manager first.
[[nodiscard]] std::span<const Role> roles();

/// Common programs that fill the remaining places.
[[nodiscard]] std::span<const std::string_view> others();

/// Ten distinct IDs: for each role its handler, otherwise the first of its common programs that is
/// installed; then other installed common programs. Any remaining places are filled with common
/// programs that are not installed, because they may be installed later. `handlerFor` returns the
/// ID for a content type, or an empty string. IDs for which `isUnfit` is true are never returned.
[[nodiscard]] std::vector<std::string>
choose(const std::function<std::string(std::string_view)>& handlerFor,
       const std::function<bool(const std::string&)>& isInstalled,
       const std::function<bool(const std::string&)>& isUnfit);

/// Whether the program is not an app in its own right, whatever its entry says: a tool that handles
/// content for scripts, or a part of a desktop that does not work outside it.
[[nodiscard]] bool isHelper(std::string_view id);

/// The first of `ids` that is installed, otherwise an empty string.
[[nodiscard]] std::string
firstInstalled(std::span<const std::string_view> ids,
               const std::function<bool(const std::string&)>& isInstalled);

}
