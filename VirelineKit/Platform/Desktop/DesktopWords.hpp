/// Words for the texts that the user reads, where desktops differ in what they call things. The
/// defaults are those of macOS; other platforms replace them. Log lines and the keys of the
/// preferences are the same on every platform.
#pragma once

#include <string>

namespace vireline {

struct DesktopWords {
    /// The desktop's own dock, within a sentence and at the beginning of one.
    std::string dock = "Apple's Dock";
    std::string dockAtStart = "Apple's Dock";
    /// A dock in general.
    std::string anyDock = "Dock";

    /// The file manager, within a sentence and in a title.
    std::string fileManager = "Finder";
    std::string fileManagerInTitle = "Finder";

    /// Continues a sentence that ends in "Settings": where to find them.
    std::string wayToSettings = ", in the menu bar.";

    /// The permission that the window features need, as a sentence for the caption of the anchor
    /// and one for that of the other three. Empty if they need none.
    std::string anchorNeeds =
        "Needs the Accessibility permission, asked for when you switch it on.";
    std::string windowFeaturesNeed =
        "All three switches use the same Accessibility permission as the Dock anchor.";
    /// Why those three do nothing, where other programs' windows cannot be moved.
    std::string cannotMoveWindows =
        "There is no window manager here that can move other programs' windows.";
    /// The tour's text above the list of the four window features, or of three without the anchor.
    std::string fourFeatures = "One macOS permission unlocks four more features";
    std::string threeFeatures = "Three more features that you can switch on";
    /// Whether the desktop's own dock can be kept in its place. Otherwise the tour does not offer
    /// it.
    bool offersAnchor = true;

    /// Why the anchor is switched on but not active, in the settings and in the tour.
    std::string anchorWaits = "Waiting for permission.";
    std::string tourWaits = "Grant Vireline access in the Accessibility pane that just opened, and "
                            "this turns green by itself.";

    /// The URL of the pane of the system's settings in which the user grants the permission, and
    /// the title of the button that opens it. Both are empty if there is no permission to grant.
    std::string permissionPane =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
    std::string openPermissionPane = "Open Accessibility Settings";
};

}
