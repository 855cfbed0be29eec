#include "Views/DockMenus.hpp"

#include "Interaction/DockActions.hpp"

namespace vireline {

Menu DockMenus::ofApp(const DockItem& item, std::uint32_t displayID) const {
    const bool canRemove = item.isPinned && actions_.isManualMode();
    Menu menu;
    for (const MenuEntry entry : ClickPolicy::menuEntries(item.isRunning, canRemove)) {
        auto select = lifetime_.guard(
            [this, entry, item, displayID] { actions_.menuSelect(entry, item, displayID); });
        menu.entries.emplace_back(
            MenuCommand{.title = title(entry, words_), .action = std::move(select)});
    }
    return menu;
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
