/// What the user does with a dock's window: the pointer, keys, drags and menus.
#include "Displays/WaylandScreens.hpp"
#include "Panels/DraggedFiles.hpp"
#include "Panels/LayerPanelWindow.hpp"
#include "Panels/LayerShellContext.hpp"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <cmath>
#include <utility>

namespace vireline::wayland {

/// While a frame is due, only the position at that frame is passed on. No frame is requested for a
/// movement that changes nothing.
void LayerPanelWindow::mouseMoveEvent(QMouseEvent* event) {
    pointer_ = event->position();
    isPointerOver_ = true;
    moveIsDue_ = true;
    if (isFrameAsked_) {
        requestTick();
    } else {
        deliverMove();
    }
}

void LayerPanelWindow::deliverMove() {
    if (std::exchange(moveIsDue_, false))
        tracker_.moved(viewPosition(pointer_));
}

void LayerPanelWindow::mousePressEvent(QMouseEvent* event) {
    if (menu_)
        return menu_->close();
    deliverMove();
    pointer_ = event->position();
    if (event->button() == Qt::LeftButton) {
        isButtonHeld_ = true;
        tracker_.pressed(viewPosition(pointer_));
    } else if (event->button() == Qt::RightButton) {
        tracker_.secondaryPressed(viewPosition(pointer_));
    } else if (event->button() == Qt::MiddleButton) {
        tracker_.middlePressed(viewPosition(pointer_));
    }
}

void LayerPanelWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    deliverMove();
    pointer_ = event->position();
    isButtonHeld_ = false;
    tracker_.released(viewPosition(pointer_), picture_ && picture_->takesPointer(pointer_));
}

/// Keys arrive only during a drag and while a menu is open, since compositors give the keyboard to
/// the surface and not to its popup.
void LayerPanelWindow::keyPressEvent(QKeyEvent* event) {
    if (menu_ && openMenu_ != nullptr) {
        QWidget* const submenu = QApplication::activePopupWidget();
        QCoreApplication::sendEvent(submenu == nullptr ? openMenu_ : submenu, event);
    } else if (event->key() == Qt::Key_Escape) {
        tracker_.cancelled();
    }
}

void LayerPanelWindow::dragMoved(QDropEvent& event) {
    const bool canDrop = listener_.dragMoved(viewPosition(event.position()));
    event.setDropAction(DraggedFiles::chosenAction(event));
    event.setAccepted(canDrop);
}

void LayerPanelWindow::dropped(QDropEvent& event) {
    event.setDropAction(DraggedFiles::chosenAction(event));
    event.setAccepted(listener_.dropped(viewPosition(event.position())));
}

void LayerPanelWindow::checkPress() {
    if (tracker_.isPressed())
        tracker_.polled(pointerState());
}

PointerTracker::PointerState LayerPanelWindow::pointerState() const {
    return {.isOverWindow = isPointerOver_ && picture_ && picture_->takesPointer(pointer_),
            .isPrimaryHeld = isButtonHeld_,
            .position = viewPosition(pointer_)};
}

/// Escape has to reach the dock during a drag, but at other times it must not have the keyboard.
void LayerPanelWindow::watchForCancel(bool watches) {
    takeKeyboard(watches);
}

void LayerPanelWindow::takeKeyboard(bool takes) {
    if (role_)
        role_->takeKeyboard(takes);
}

void LayerPanelWindow::popUpMenu(const Menu& menu, const MenuPlace& place,
                                 std::function<void()> onClose) {
    QScreen* const screen = context_.screens.qtScreen(displayID_);
    if (!picture_ || screen == nullptr || menu.entries.empty())
        return onClose();
    if (menu_)
        menu_->end();
    tracker_.menuOpened();
    menu_ = std::make_unique<xdg::PopUpMenu>(
        menu, [this, screen, &place](QMenu& filled) { openMenu(filled, *screen, place); },
        [this, onClose = std::move(onClose)](const MenuAction& chosen) {
            popup_.reset();
            openMenu_ = nullptr;
            menu_.reset();
            takeKeyboard(false);
            tracker_.menuClosed(pointerState());
            // From here on this window may be gone.
            onClose();
            if (chosen)
                chosen();
        });
}

void LayerPanelWindow::openMenu(QMenu& menu, QScreen& screen, const MenuPlace& place) {
    const QSize size = menu.sizeHint();
    const QPointF at = placeInQt().topLeft() + mapping_.toPixels(place.at) / mapping_.scale;
    const Point corner = MenuPlace{{at.x(), at.y()}, place.side}.corner(
        {static_cast<double>(size.width()), static_cast<double>(size.height())});
    openMenu_ = &menu;
    takeKeyboard(true);
    popup_ =
        std::make_unique<MenuPopup>(context_, *role_, menu,
                                    MenuPopup::Place{screen,
                                                     placeInQt(),
                                                     {static_cast<int>(std::lround(corner.x)),
                                                      static_cast<int>(std::lround(corner.y))}},
                                    [this] {
                                        // It cannot be destroyed from its own event.
                                        QMetaObject::invokeMethod(this, lifetime_.guard([this] {
                                            if (menu_)
                                                menu_->end();
                                        }),
                                                                  Qt::QueuedConnection);
                                    });
}

}
