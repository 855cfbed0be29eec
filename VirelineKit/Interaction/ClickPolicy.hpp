/// What a click on an app's tile means and what its menu offers.
#pragma once

#include <string>
#include <vector>

namespace vireline {

struct DesktopWords;

enum class ClickAction {
    launch,   ///< it does not run: start it
    activate, ///< it runs behind others: bring it forward
    hide,     ///< it is frontmost: hide it
    summon,   ///< it has no window on the clicked display: pull its main window there
};

enum class MenuEntry { open, show, showInFinder, removeFromDock, quit };

/// The text that the menu shows.
[[nodiscard]] std::string title(MenuEntry entry, const DesktopWords& words);

namespace ClickPolicy {

struct AppState {
    bool isRunning = false;
    bool isFrontmost = false;
    bool hasWindowHere = false;
};

/// Not running wins over everything. With summoning on, an app without a window on the clicked
/// display is summoned even if it is frontmost.
[[nodiscard]] ClickAction decide(const AppState& app, bool summonEnabled) noexcept;

/// The entries in the order that the menu shows them.
[[nodiscard]] std::vector<MenuEntry> menuEntries(bool isRunning, bool canRemove);

}
}
