/// Decides what a click on an app's tile does and what its menu contains.
#pragma once

#include <string>
#include <vector>

namespace vireline {

struct DesktopWords;

enum class ClickAction {
    launch,   ///< not running: start it
    activate, ///< running behind others: bring it forward
    hide,     ///< frontmost: hide it
    summon,   ///< no window on the clicked display: move its main window there
};

enum class MenuEntry { open, show, showInFinder, removeFromDock, quit };

/// The title in the menu.
[[nodiscard]] std::string title(MenuEntry entry, const DesktopWords& words);

namespace ClickPolicy {

struct AppState {
    bool isRunning = false;
    bool isFrontmost = false;
    bool hasWindowHere = false;
};

/// An app that is not running is always launched. If summoning is enabled, an app without a window
/// on the clicked display is summoned even if it is frontmost.
[[nodiscard]] ClickAction decide(const AppState& app, bool summonEnabled) noexcept;

/// The entries, in menu order.
[[nodiscard]] std::vector<MenuEntry> menuEntries(bool isRunning, bool canRemove);

}
}
