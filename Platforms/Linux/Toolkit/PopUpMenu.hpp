/// A native popup menu made of a menu's data. Opens without anybody having the focus; a choice, a
/// click elsewhere or Escape closes it.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Presentation/Menu.hpp"

#include <QMenu>
#include <QPoint>
#include <functional>
#include <memory>

class QScreen;

namespace vireline::x11 {

class PopUpMenu {
public:
    /// Called once, when the menu is closed and no longer holds the pointer, with the action of the
    /// chosen command; null if none was chosen or it does nothing. May destroy the menu.
    using Closed = std::function<void(const MenuAction& chosen)>;

    /// Opens with one of its corners at a position in Qt's coordinates, inside the screen.
    PopUpMenu(const Menu& menu, QScreen& screen, QPoint at, Closed closed);
    /// Opens at that place in Qt's coordinates, moved so as to lie inside the screen.
    PopUpMenu(const Menu& menu, QScreen& screen, const MenuPlace& place, Closed closed);
    PopUpMenu(const PopUpMenu&) = delete;
    PopUpMenu& operator=(const PopUpMenu&) = delete;
    PopUpMenu(PopUpMenu&&) = delete;
    PopUpMenu& operator=(PopUpMenu&&) = delete;
    ~PopUpMenu() = default;

    void close() { menu_->close(); }

    /// Closes it and tells so at once.
    void end();

private:
    /// Hidden at once, deleted when no event of its own is being handled.
    struct Discard {
        void operator()(QMenu* menu) const;
    };

    PopUpMenu(const Menu& menu, QScreen& screen, Closed closed);
    void fill(const Menu& menu);
    void finish();

    Closed closed_;
    MenuAction chosen_;
    std::unique_ptr<QMenu, Discard> menu_;
    Lifetime lifetime_;
};

}
