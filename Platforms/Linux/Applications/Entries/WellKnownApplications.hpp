/// The ten apps that the docks show when there is nothing to mirror.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11::WellKnownApplications {

inline constexpr std::size_t count = 10;

/// What people use a desktop for: the kinds of content whose handlers the user chose, and the
/// programs that commonly serve them where no choice is recorded.
struct Role {
    std::string_view contentType;
    std::span<const std::string_view> commonIDs;
};

/// In the order of the dock; the file manager's leads.
[[nodiscard]] std::span<const Role> roles();

/// Common programs for the places that are left.
[[nodiscard]] std::span<const std::string_view> others();

/// Ten different IDs: for each role its handler, else the first common one that is installed; then
/// the others that are. What is left of the ten is filled with common ones that are not, since an
/// app may be installed later. `handlerFor` gives an ID for a content type, or an empty one. What
/// `isUnfit` holds of is never among them.
[[nodiscard]] std::vector<std::string>
choose(const std::function<std::string(std::string_view)>& handlerFor,
       const std::function<bool(const std::string&)>& isInstalled,
       const std::function<bool(const std::string&)>& isUnfit);

/// Whether the program is no app of its own, whatever its entry says: a tool that handles some kind
/// of content for scripts, or a part of a desktop that does not work outside of it.
[[nodiscard]] bool isHelper(std::string_view id);

/// The first of `ids` that is installed, else an empty one.
[[nodiscard]] std::string
firstInstalled(std::span<const std::string_view> ids,
               const std::function<bool(const std::string&)>& isInstalled);

}
