/// What the texts that a user reads call the things that each desktop names in its own way. As it
/// stands, the record has the words of macOS; another platform brings its own. The log and the
/// preferences are the same everywhere and take nothing from here.
#pragma once

#include <string>

namespace vireline {

struct DesktopWords {
    /// The dock that the desktop has itself, within a sentence and at the beginning of one.
    std::string dock = "Apple's Dock";
    std::string dockAtStart = "Apple's Dock";
    /// Any dock of that kind.
    std::string anyDock = "Dock";

    /// The program that shows files, within a sentence and in a title.
    std::string fileManager = "Finder";
    std::string fileManagerInTitle = "Finder";

    /// Continues the sentence that something is in the settings: where to find them.
    std::string wayToSettings = ", in the menu bar.";

    /// What the window features need, as sentences for the captions of the anchor and of the other
    /// three; empty where they need nothing that the user could grant.
    std::string anchorNeeds =
        "Needs the Accessibility permission, asked for when you switch it on.";
    std::string windowFeaturesNeed =
        "All three switches use the same Accessibility permission as the Dock anchor.";
    /// What the tour says above the list of the four.
    std::string fourFeatures = "One macOS permission unlocks four more features";

    /// Why the anchor does not guard although it is on, in the settings and in the tour.
    std::string anchorWaits = "Waiting for permission.";
    std::string tourWaits = "Grant Vireline access in the Accessibility pane that just opened, and "
                            "this turns green by itself.";

    /// The pane of the system's settings in which the user grants the permission, by its URL, and
    /// the button that opens it; both empty where there is nothing to grant.
    std::string permissionPane =
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";
    std::string openPermissionPane = "Open Accessibility Settings";
};

}
