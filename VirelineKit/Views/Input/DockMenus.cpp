#include "Views/Input/DockMenus.hpp"

#include "Interaction/DockActions.hpp"
#include "Interaction/WindowTitles.hpp"
#include "Sources/IconStore.hpp"

#include <cstddef>
#include <utility>

namespace vireline {

Menu DockMenus::ofApp(const DockItem& item, std::uint32_t displayID) const {
    const bool canRemove = item.isPinned && actions_.isManualMode();
    Menu menu;
    addWindows(menu, item, displayID);
    addActions(menu, item);
    for (const MenuEntry entry : ClickPolicy::menuEntries(item.isRunning, canRemove)) {
        auto select = lifetime_.guard(
            [this, entry, item, displayID] { actions_.menuSelect(entry, item, displayID); });
        menu.entries.emplace_back(
            MenuCommand{.title = title(entry, words_), .action = std::move(select)});
    }
    return menu;
}

void DockMenus::addWindows(Menu& menu, const DockItem& item, std::uint32_t displayID) const {
    MenuSubmenu more{.title = "More…", .entries = {}};
    std::size_t listed = 0;
    for (const OpenWindow& window : actions_.windows(item)) {
        auto select = lifetime_.guard(
            [this, window, item, displayID] { actions_.showWindow(window, item, displayID); });
        MenuCommand entry{.title = WindowTitles::menuTitle(window.title, item.name),
                          .isChecked = window.isActive ? std::optional{true} : std::nullopt,
                          .action = std::move(select)};
        if (listed < WindowTitles::listedWindows)
            menu.entries.emplace_back(std::move(entry));
        else if (listed < WindowTitles::maximumWindows)
            more.entries.push_back(std::move(entry));
        ++listed;
    }
    if (!more.entries.empty())
        menu.entries.emplace_back(std::move(more));
    if (!menu.entries.empty())
        menu.entries.emplace_back(MenuSeparator{});
}

void DockMenus::addActions(Menu& menu, const DockItem& item) const {
    const auto offered = actions_.appActions(item);
    for (const ApplicationCatalog::Action& action : offered) {
        auto perform =
            lifetime_.guard([this, id = action.id, item] { actions_.performAction(id, item); });
        menu.entries.emplace_back(MenuCommand{.title = action.name,
                                              .action = std::move(perform),
                                              .image = icons_.actionIcon(action.icon)});
    }
    if (!offered.empty())
        menu.entries.emplace_back(MenuSeparator{});
}

/// A right-click that misses a tile by a few points should not offer to quit the program, so that
/// entry exists only if there is no status item to quit it with.
Menu DockMenus::ofProgram() const {
    Menu menu;
    if (auto title = actions_.undoTitle()) {
        menu.entries.emplace_back(MenuCommand{
            .title = *std::move(title), .action = lifetime_.guard([this] { actions_.undo(); })});
        menu.entries.emplace_back(MenuSeparator{});
    }
    menu.entries.emplace_back(MenuCommand{
        .title = "Settings…", .action = lifetime_.guard([this] { actions_.showSettings(); })});
    if (!actions_.hasStatusItem())
        menu.entries.emplace_back(MenuCommand{
            .title = "Quit Vireline", .action = lifetime_.guard([this] { actions_.quit(); })});
    return menu;
}

}
