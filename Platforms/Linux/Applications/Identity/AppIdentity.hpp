/// Which application a window belongs to.
#pragma once

#include "Applications/Entries/DesktopEntryIndex.hpp"
#include "Applications/Identity/ProcessFacts.hpp"
#include "Applications/Identity/WindowTraits.hpp"

#include <optional>
#include <string>

namespace vireline::x11 {

/// An application as its windows show it: a desktop entry's, or one of its own.
struct IdentifiedApp {
    /// The entry's ID, or the window's class.
    std::string bundleID;
    std::string name;
    /// The entry's file, the executable, or a path made from the class; absolute.
    std::string path;
    bool hasEntry = false;

    bool operator==(const IdentifiedApp&) const = default;
};

namespace AppIdentity {

/// Stands in for the class of a window that names neither a class nor a program.
inline constexpr const char* unknownID = "unknown";

/// The app that the window belongs to. Asked in this order, the first answer counts: `launched`,
/// which is the app that the window's startup ID was made for if that launch was ours; the IDs that
/// toolkits set; StartupWMClass; the class against IDs; the process against Exec. What is claimed
/// by several entries falls to the one whose Exec line the process was started by, then to one that
/// menus show. A window that no entry answers to is an app of its own.
[[nodiscard]] IdentifiedApp identify(const WindowTraits& window, const ProcessFacts& process,
                                     const DesktopEntryIndex& index,
                                     const std::optional<IdentifiedApp>& launched = std::nullopt);

/// The app of an entry.
[[nodiscard]] IdentifiedApp appOf(const DesktopEntry& entry);

}
}
