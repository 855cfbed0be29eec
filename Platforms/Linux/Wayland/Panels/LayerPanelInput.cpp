/// What the user does with a dock's window: the pointer, keys, drags and menus.
#include "Displays/WaylandScreens.hpp"
#include "Panels/LayerPanelWindow.hpp"
#include "Panels/Surfaces/DockContext.hpp"

#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <cmath>
#include <utility>

namespace vireline::wayland {

void LayerPanelWindow::pointerEntered(QPointF at) {
    pointer_ = at;
    isPointerOver_ = true;
    tracker_.entered(viewPosition(pointer_));
}

/// While a frame is due, only the position at that frame is passed on. No frame is requested for a
/// movement that changes nothing.
void LayerPanelWindow::pointerMoved(QPointF at) {
    pointer_ = at;
    isPointerOver_ = true;
    moveIsDue_ = true;
    if (!isFrameAsked_)
        deliverMove();
}

void LayerPanelWindow::deliverMove() {
    if (std::exchange(moveIsDue_, false))
        tracker_.moved(viewPosition(pointer_));
}

void LayerPanelWindow::pointerLeft() {
    moveIsDue_ = false;
    isPointerOver_ = false;
    isButtonHeld_ = false;
    tracker_.left(pointerState());
}

void LayerPanelWindow::buttonPressed(PointerButton button) {
    if (menu_)
        return menu_->end();
    deliverMove();
    switch (button) {
    case PointerButton::left:
        isButtonHeld_ = true;
        return tracker_.pressed(viewPosition(pointer_));
    case PointerButton::right:
        return tracker_.secondaryPressed(viewPosition(pointer_));
    case PointerButton::middle:
        return tracker_.middlePressed(viewPosition(pointer_));
    }
}

void LayerPanelWindow::buttonReleased(PointerButton button) {
    if (button != PointerButton::left)
        return;
    deliverMove();
    isButtonHeld_ = false;
    tracker_.released(viewPosition(pointer_), picture_ && picture_->takesPointer(pointer_));
}

void LayerPanelWindow::dragEntered(const std::vector<std::string>& urls) {
    listener_.dragEntered(urls);
}

bool LayerPanelWindow::dragMoved(QPointF at) {
    return listener_.dragMoved(viewPosition(at));
}

void LayerPanelWindow::dragLeft() {
    listener_.dragExited();
}

bool LayerPanelWindow::dragDropped(QPointF at) {
    return listener_.dropped(viewPosition(at));
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
    QScreen* const screen = context_.screens.qtScreen(displayID_);
    if (!watches || !surface_ || screen == nullptr)
        return keys_.reset();
    const QRect anywhere{place_.topLeft(), QSize{1, 1}};
    keys_ = InvisibleSurface::make(
        context_.menus, *screen, anywhere,
        {.keyPressed = [this](const QKeyEvent& event) { keyPressed(event); }});
    keys_->takeKeyboard();
}

void LayerPanelWindow::keyPressed(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape)
        tracker_.cancelled();
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
            openMenu_.reset();
            menu_.reset();
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
    const auto end = [this] {
        if (menu_)
            menu_->end();
    };
    openMenu_ = std::make_unique<DockMenu>(
        context_.menus, menu,
        DockMenu::Place{
            screen,
            placeInQt(),
            {static_cast<int>(std::lround(corner.x)), static_cast<int>(std::lround(corner.y))}},
        [this, end] {
            // It cannot be destroyed from its popup's own event.
            QMetaObject::invokeMethod(this, lifetime_.guard(end), Qt::QueuedConnection);
        });
}

}
