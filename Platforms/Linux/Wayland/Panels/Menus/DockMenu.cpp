#include "Panels/Menus/DockMenu.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <utility>

namespace vireline::wayland {

DockMenu::DockMenu(const LayerShellContext& context, QMenu& menu, const Place& place,
                   std::function<void()> onDismissed)
    : onDismissed_(std::move(onDismissed))
    , cover_(InvisibleSurface::make(
          context, place.screen, place.dock.translated(-place.screen.geometry().topLeft()),
          {.shown = [this, &context, &menu, place] { open(context, menu, place); },
           .pressed = [this] { onDismissed_(); },
           .keyPressed = &DockMenu::pass,
           .closed =
               [this] {
                   popup_.reset();
                   onDismissed_();
               }})) {
    cover_->takeKeyboard();
}

void DockMenu::open(const LayerShellContext& context, QMenu& menu, const Place& place) {
    popup_ = std::make_unique<MenuPopup>(context, *cover_->role(), menu,
                                         MenuPopup::Place{place.screen, place.dock, place.corner},
                                         onDismissed_);
}

/// Compositors give the keyboard to the surface and not to its popup.
void DockMenu::pass(QKeyEvent& event) {
    if (QWidget* const menu = QApplication::activePopupWidget())
        QCoreApplication::sendEvent(menu, &event);
}

}
