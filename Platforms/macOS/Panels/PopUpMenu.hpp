/// A native popup menu made of a menu's data, which opens without anybody having the focus.
#pragma once

#include "Presentation/Menu.hpp"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>

namespace vireline::macos {

/// The system's menus hold up whoever opens them, so this one opens in the next turn of the loop.
/// Dropped, it closes without a word.
class PopUpMenu {
public:
    /// Called once, in a turn of its own, with the action of the chosen command; null if none was
    /// chosen or it does nothing. May drop the menu.
    using Closed = std::function<void(const MenuAction& chosen)>;

    /// Opens at that place of `view`, whose y grows downwards; the system moves it into the
    /// display.
    [[nodiscard]] static std::shared_ptr<PopUpMenu> open(const Menu& menu, NSView* _Nullable view,
                                                         const MenuPlace& place, Closed closed);

    explicit PopUpMenu(Closed closed) : closed_(std::move(closed)) {}
    PopUpMenu(const PopUpMenu&) = delete;
    PopUpMenu& operator=(const PopUpMenu&) = delete;
    PopUpMenu(PopUpMenu&&) = delete;
    PopUpMenu& operator=(PopUpMenu&&) = delete;
    ~PopUpMenu();

    /// Closes it and tells so at once.
    void end();

private:
    void close();
    void finish();

    Closed closed_;
    MenuAction chosen_;
    NSMenu* _Nullable menu_ = nil;
};

}
