#include "Panels/Accessible/AccessibleDock.hpp"

#include "Platform/PanelWindow.hpp"

#include <utility>

namespace vireline::xdg {

AccessibleDock::AccessibleDock(DockAccess dock) : dock_(std::move(dock)) {
    QAccessible::installActivationObserver(this);
}

AccessibleDock::~AccessibleDock() {
    QAccessible::removeActivationObserver(this);
    notify(QAccessible::ObjectDestroyed);
}

/// Buttons that were created while no assistive technology was active may be out of date.
void AccessibleDock::accessibilityActiveChanged(bool isActive) {
    isActive_ = isActive;
    root_.reset();
}

void AccessibleDock::setShown(bool isShown) {
    dock_.isShown = isShown;
    notify(isShown ? QAccessible::ObjectShow : QAccessible::ObjectHide);
}

QAccessibleInterface* AccessibleDock::root() {
    if (!root_)
        root_ = makeRegistered<DockInterface>(dock_, dock_.listener.accessibleTiles());
    return root_.get();
}

void AccessibleDock::refresh() {
    if (!isActive_)
        return root_.reset();
    if (root_)
        return root_->setTiles(dock_.listener.accessibleTiles());
    dock_.notify(*root(), QAccessible::ObjectCreated);
}

void AccessibleDock::notify(QAccessible::Event what) {
    if (isActive_ && root_)
        dock_.notify(*root_, what);
}

}
