/// Menus as data, which each platform translates into its own.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Presentation/Image.hpp"

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vireline {

struct MenuSeparator {
    bool operator==(const MenuSeparator&) const = default;
};

/// Called when the user chooses a command; may be null.
using MenuAction = std::function<void()>;

struct MenuCommand {
    std::string title;
    /// Works with the platform's command modifier while the menu is open; 0 means none.
    char keyEquivalent = 0;
    /// nullopt for a command that never has a check mark.
    std::optional<bool> isChecked{};
    MenuAction action{};
    /// Shown beside the title; null for none. Popup menus on Linux only, since no other platform
    /// has such commands.
    ImageHandle image{};

    /// Compares only the look, since actions cannot be compared.
    bool operator==(const MenuCommand& other) const {
        return title == other.title && keyEquivalent == other.keyEquivalent &&
               isChecked == other.isChecked;
    }
};

/// Only popup menus have submenus.
struct MenuSubmenu {
    std::string title;
    std::vector<MenuCommand> entries;

    bool operator==(const MenuSubmenu&) const = default;
};

using MenuItem = std::variant<MenuCommand, MenuSeparator, MenuSubmenu>;

/// A popup menu, or that of a status item.
struct Menu {
    std::vector<MenuItem> entries;

    bool operator==(const Menu&) const = default;
};

/// Where a popup menu opens: on the given side of a point of the view, centred on it.
struct MenuPlace {
    enum class Side { above, leftOf, rightOf };

    Point at;
    Side side = Side::above;

    /// The top-left corner of a menu of this size, in the coordinates of `at`: y downwards.
    [[nodiscard]] constexpr Point corner(Size menu) const noexcept {
        switch (side) {
        case Side::leftOf:
            return {at.x - menu.width, at.y - menu.height / 2};
        case Side::rightOf:
            return {at.x, at.y - menu.height / 2};
        case Side::above:
            break;
        }
        return {at.x - menu.width / 2, at.y - menu.height};
    }

    bool operator==(const MenuPlace&) const = default;
};

/// What an entry of the hidden main menu does, to the program or to the focused control.
enum class StandardAction { terminate, undo, redo, cut, copy, paste, selectAll };

struct MainMenuCommand {
    std::string title;
    StandardAction action;
    /// With the platform's command modifier; an upper-case letter means shift as well.
    char keyEquivalent;

    bool operator==(const MainMenuCommand&) const = default;
};

struct MainMenuSubmenu {
    std::string title;
    std::vector<std::variant<MainMenuCommand, MenuSeparator>> entries;

    bool operator==(const MainMenuSubmenu&) const = default;
};

/// The program's main menu: untitled items, each with one submenu.
struct MainMenu {
    std::vector<MainMenuSubmenu> submenus;

    bool operator==(const MainMenu&) const = default;
};

}
