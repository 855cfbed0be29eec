/// What assistive technology finds of one dock. There is nothing of it until somebody asks, and it
/// follows the dock only while somebody listens. Owned by the dock's window.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Panels/Accessible/DockAccess.hpp"
#include "Panels/Accessible/DockInterface.hpp"
#include "Panels/Accessible/Registered.hpp"

#include <QAccessible>

namespace vireline::x11 {

class AccessibleDock final : private QAccessible::ActivationObserver {
public:
    explicit AccessibleDock(DockAccess dock);
    AccessibleDock(const AccessibleDock&) = delete;
    AccessibleDock& operator=(const AccessibleDock&) = delete;
    AccessibleDock(AccessibleDock&&) = delete;
    AccessibleDock& operator=(AccessibleDock&&) = delete;
    ~AccessibleDock() override;

    /// The window's interface, which Qt also finds by the window from now on.
    [[nodiscard]] QAccessibleInterface* root();

    /// What the dock shows may have changed. May end buttons, so it must not be called in the
    /// middle of what Qt does with one.
    void refresh();

private:
    void accessibilityActiveChanged(bool isActive) override;
    void tell(QAccessible::Event what);

    DockAccess dock_;
    bool isActive_ = QAccessible::isActive();
    Registered<DockInterface> root_;
    Lifetime lifetime_;
};

}
