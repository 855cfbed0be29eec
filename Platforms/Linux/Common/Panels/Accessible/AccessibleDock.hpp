/// The accessibility tree of one dock. Created on first use, and updated only while assistive
/// technology is active. Owned by the dock's window.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Panels/Accessible/DockAccess.hpp"
#include "Panels/Accessible/DockInterface.hpp"
#include "Panels/Accessible/Registered.hpp"

#include <QAccessible>

namespace vireline::xdg {

class AccessibleDock final : private QAccessible::ActivationObserver, private NonCopyable {
public:
    explicit AccessibleDock(DockAccess dock);
    ~AccessibleDock() override;

    /// The window's interface; from now on Qt also finds it through the window.
    [[nodiscard]] QAccessibleInterface* root();

    /// Call when the dock's window has been shown or hidden.
    void setShown(bool isShown);

    /// Call when the dock's content may have changed. May destroy buttons, so it must not be called
    /// while Qt is using one.
    void refresh();

private:
    void accessibilityActiveChanged(bool isActive) override;
    void notify(QAccessible::Event what);

    DockAccess dock_;
    bool isActive_ = QAccessible::isActive();
    Registered<DockInterface> root_;
};

}
