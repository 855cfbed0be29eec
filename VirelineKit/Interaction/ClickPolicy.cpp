#include "Interaction/ClickPolicy.hpp"

#include "Platform/Desktop/DesktopWords.hpp"

namespace vireline {

std::string title(MenuEntry entry, const DesktopWords& words) {
    switch (entry) {
    case MenuEntry::open:
        return "Open";
    case MenuEntry::show:
        return "Show";
    case MenuEntry::showInFinder:
        return "Show in " + words.fileManagerInTitle;
    case MenuEntry::removeFromDock:
        return "Remove from Dock";
    case MenuEntry::quit:
        return "Quit";
    }
    return {};
}

namespace ClickPolicy {

ClickAction decide(const AppState& app, bool summonEnabled) noexcept {
    if (!app.isRunning)
        return ClickAction::launch;
    if (summonEnabled && !app.hasWindowHere)
        return ClickAction::summon;
    return app.isFrontmost ? ClickAction::hide : ClickAction::activate;
}

std::vector<MenuEntry> menuEntries(bool isRunning, bool canRemove) {
    std::vector<MenuEntry> entries{isRunning ? MenuEntry::show : MenuEntry::open,
                                   MenuEntry::showInFinder};
    if (canRemove)
        entries.push_back(MenuEntry::removeFromDock);
    if (isRunning)
        entries.push_back(MenuEntry::quit);
    return entries;
}

}
}
