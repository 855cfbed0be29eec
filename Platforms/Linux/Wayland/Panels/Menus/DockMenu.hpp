/// Opens the menu of a dock. Menus are Qt's, but docks are not on its connection, so an invisible
/// surface of Qt's covers the dock for as long as the menu is open: the menu is its popup, it gets
/// the keys, and a click on it closes the menu.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Panels/Menus/MenuPopup.hpp"
#include "Panels/Surfaces/InvisibleSurface.hpp"

#include <QPoint>
#include <QRect>
#include <functional>
#include <memory>

class QKeyEvent;
class QMenu;
class QScreen;

namespace vireline::wayland {

class LayerShellContext;

class DockMenu : private NonCopyable {
public:
    struct Place {
        QScreen& screen;
        /// The dock's surface, in Qt's screen coordinates.
        QRect dock;
        /// The menu's top-left corner, as far as there is room; in the same coordinates.
        QPoint corner;
    };

    /// `onDismissed` is called when the menu should close: there was a click elsewhere, or the
    /// display is gone. It may destroy this object. The others must outlive it, except the menu,
    /// which may be deleted after it has been hidden.
    DockMenu(const LayerShellContext& context, QMenu& menu, const Place& place,
             std::function<void()> onDismissed);

    /// Gives a key to the menu that is open, or to its open submenu.
    static void pass(QKeyEvent& event);

private:
    void open(const LayerShellContext& context, QMenu& menu, const Place& place);

    std::function<void()> onDismissed_;
    InvisibleSurface::Retiring cover_;
    std::unique_ptr<MenuPopup> popup_;
};

}
