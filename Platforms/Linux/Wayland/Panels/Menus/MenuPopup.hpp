/// Opens a menu as a popup of a layer surface. Qt cannot do that itself, since its popups need a
/// parent with a role of Qt's own.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QObject>
#include <QPoint>
#include <QRect>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QMenu;
class QScreen;

namespace vireline::wayland {

class LayerRole;
class LayerShellContext;
class SubmenuPopup;

class MenuPopup : private NonCopyable {
public:
    struct Place {
        QScreen& screen;
        /// The parent surface's frame, in Qt's screen coordinates.
        QRect parent;
        /// The menu's top-left corner, as far as there is room.
        QPoint corner;
    };

    /// `onDismissed` is called when the compositor closes or refuses the menu. All must outlive
    /// this object except the menu, which may be deleted after it has been hidden.
    MenuPopup(const LayerShellContext& context, const LayerRole& parent, QMenu& menu,
              const Place& place, std::function<void()> onDismissed);
    ~MenuPopup();

private:
    struct Events;

    void makeRole(const LayerShellContext& context, const LayerRole& parent, const Place& place);
    void configured(std::uint32_t serial);
    void dropRole();

    QMenu& menu_;
    QPoint origin_;
    std::function<void()> onDismissed_;
    /// Relative to the parent, as the compositor has placed it.
    QPoint placed_;
    Proxy<xdg_surface> surface_;
    /// Declared after the surface, so that it is destroyed first.
    Proxy<xdg_popup> popup_;
    std::vector<std::unique_ptr<SubmenuPopup>> submenus_;
    QObject context_;
};

}
