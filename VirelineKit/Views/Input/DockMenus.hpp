/// Makes the menus of one dock. Owned by the dock's view.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Presentation/Menu.hpp"

#include <cstdint>

namespace vireline {

class IconStore;
struct DesktopWords;
struct DockActions;
struct DockItem;

class DockMenus {
public:
    DockMenus(const DockActions& actions, IconStore& icons, const DesktopWords& words)
        : actions_(actions), icons_(icons), words_(words) {}

    /// The menu of an app's tile on this display.
    [[nodiscard]] Menu ofApp(const DockItem& item, std::uint32_t displayID) const;

    /// The menu of the strip next to the tiles.
    [[nodiscard]] Menu ofProgram() const;

private:
    /// An entry for each of the app's windows, and a separator if there are any.
    void addWindows(Menu& menu, const DockItem& item, std::uint32_t displayID) const;
    /// The same for what the app offers to do.
    void addActions(Menu& menu, const DockItem& item) const;

    const DockActions& actions_;
    IconStore& icons_;
    const DesktopWords& words_;
    Lifetime lifetime_;
};

}
