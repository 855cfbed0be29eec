/// Opens a submenu as a popup of the menu that it belongs to, whenever Qt shows it: Qt itself would
/// open it as a window, since the menu has no role of Qt's own.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QObject>
#include <cstdint>
#include <functional>

class QMenu;

namespace vireline::wayland {

class LayerShellContext;

class SubmenuPopup final : public QObject, private NonCopyable {
public:
    /// `parentRole` is the role of the menu that `submenu` opens from, null while that is not open.
    /// All must outlive this object except the submenu, which may be deleted after it has been
    /// hidden.
    SubmenuPopup(const LayerShellContext& context, QMenu& submenu,
                 std::function<xdg_surface*()> parentRole);
    ~SubmenuPopup() override;

    /// To be called before the role of the menu that it belongs to is destroyed.
    void dropRole();

private:
    struct Events;

    bool eventFilter(QObject* watched, QEvent* event) override;
    void makeRole();
    [[nodiscard]] wl_surface* freshSurface();

    const LayerShellContext& shell_;
    QMenu& submenu_;
    std::function<xdg_surface*()> parentRole_;
    QMetaObject::Connection hidden_;
    Proxy<xdg_surface> surface_;
    /// Declared after the surface, so that it is destroyed first.
    Proxy<xdg_popup> popup_;
};

}
