/// A native popup menu created from the kit's menu data. Opens without taking the focus; a choice,
/// a click elsewhere or Escape closes it.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Presentation/Menu.hpp"

#include <QMenu>
#include <functional>
#include <memory>

namespace vireline::xdg {

class PopUpMenu : private NonCopyable {
public:
    /// Called once, when the menu is closed and no longer holds the pointer, with the action of the
    /// chosen command; null if none was chosen or it does nothing. May destroy the menu.
    using Closed = std::function<void(const MenuAction& chosen)>;

    /// Shows the filled menu in its place; how that is done depends on the window system.
    using Opener = std::function<void(QMenu&)>;

    PopUpMenu(const Menu& menu, const Opener& open, Closed closed);

    void close() { menu_->close(); }

    /// Closes it and reports that immediately.
    void end();

private:
    /// Hides at once, and deletes when none of the menu's events is being handled.
    struct Discard {
        void operator()(QMenu* menu) const;
    };

    void fill(const Menu& menu);
    void add(QMenu& menu, const MenuCommand& command);
    void finish();

    Closed closed_;
    MenuAction chosen_;
    std::unique_ptr<QMenu, Discard> menu_;
    Lifetime lifetime_;
};

}
