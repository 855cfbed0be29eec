#include "Desktop/LinuxWords.hpp"

namespace vireline::xdg {

DesktopWords linuxWords() {
    DesktopWords words;
    words.dock = "the desktop's dock";
    words.dockAtStart = "The desktop's dock";
    words.anyDock = "dock";
    words.fileManager = "the file manager";
    words.fileManagerInTitle = "File Manager";
    // Not every desktop has a place for the status item, so the text points to the dock's own menu.
    words.wayToSettings = ": right-click a dock beside its tiles.";
    words.anchorNeeds.clear();
    words.windowFeaturesNeed.clear();
    words.fourFeatures = "Four more features that you can switch on";
    words.anchorWaits = "Not possible here: the X server does not report the pointer's movements.";
    words.tourWaits = "The anchor is not possible here: the X server does not report the pointer's "
                      "movements. The other three work.";
    words.permissionPane.clear();
    words.openPermissionPane.clear();
    return words;
}

}
