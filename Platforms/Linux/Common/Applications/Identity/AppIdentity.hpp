/// Decides which application a window belongs to.
#pragma once

#include "Applications/Entries/DesktopEntryIndex.hpp"
#include "Applications/Identity/ProcessFacts.hpp"
#include "Applications/Identity/WindowTraits.hpp"

#include <optional>
#include <string>

namespace vireline::xdg {

/// An application derived from its windows: a desktop entry's, or one without an entry.
struct IdentifiedApp {
    /// The entry's ID, or the window's class if there is no entry.
    std::string bundleID;
    std::string name;
    /// The entry's file, the executable, or a path made up from the class; absolute.
    std::string path;
    bool hasEntry = false;

    bool operator==(const IdentifiedApp&) const = default;
};

namespace AppIdentity {

/// Used for windows that name neither a class nor a program.
inline constexpr const char* unknownID = "unknown";

/// The app that the window belongs to. The first match counts, in this order: `launched`, the app
/// for which one of our launches created the window's startup ID; the IDs that toolkits set;
/// StartupWMClass; the class compared with IDs; the process compared with Exec lines. If several
/// entries match, the one whose Exec line started the process wins, then one that menus show. A
/// window that matches no entry is an app of its own.
[[nodiscard]] IdentifiedApp identify(const WindowTraits& window, const ProcessFacts& process,
                                     const DesktopEntryIndex& index,
                                     const std::optional<IdentifiedApp>& launched = std::nullopt);

/// The app of a desktop entry.
[[nodiscard]] IdentifiedApp appOf(const DesktopEntry& entry);

}
}
