#include "Panels/Menus/MenuPopup.hpp"

#include "Connection/QtNative.hpp"
#include "Panels/Menus/PopupPosition.hpp"
#include "Panels/Menus/SubmenuPopup.hpp"
#include "Panels/Surfaces/LayerRole.hpp"
#include "Panels/Surfaces/LayerShellContext.hpp"

#include <wayland-client.h>
#include <xdg-shell-client-protocol.h>

#include <QMenu>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace vireline::wayland {
namespace {

/// As near to `corner` as the screen allows.
QPoint inside(const QRect& screen, QSize menu, QPoint corner) {
    const auto along = [](int from, int length, int low, int high) {
        return std::max(low, std::min(from, high - length));
    };
    return {along(corner.x(), menu.width(), screen.x(), screen.x() + screen.width()),
            along(corner.y(), menu.height(), screen.y(), screen.y() + screen.height())};
}

}

struct MenuPopup::Events {
    static void configureSurface(void* data, xdg_surface* /*surface*/, std::uint32_t serial) {
        static_cast<MenuPopup*>(data)->configured(serial);
    }
    static void configure(void* data, xdg_popup* /*popup*/, std::int32_t x, std::int32_t y,
                          std::int32_t /*width*/, std::int32_t /*height*/) {
        static_cast<MenuPopup*>(data)->placed_ = {x, y};
    }
    static void done(void* data, xdg_popup* /*popup*/) {
        static_cast<MenuPopup*>(data)->onDismissed_();
    }
    static void repositioned(void* /*data*/, xdg_popup* /*popup*/, std::uint32_t /*token*/) {}

    static constexpr xdg_surface_listener surface{.configure = configureSurface};
    static constexpr xdg_popup_listener popup{
        .configure = configure, .popup_done = done, .repositioned = repositioned};
};

MenuPopup::MenuPopup(const LayerShellContext& context, const LayerRole& parent, QMenu& menu,
                     const Place& place, std::function<void()> onDismissed)
    : menu_(menu), origin_(place.parent.topLeft()), onDismissed_(std::move(onDismissed)) {
    menu.setWindowFlag(Qt::BypassWindowManagerHint);
    menu.setScreen(&place.screen);
    // Makes the window and its surface.
    (void)menu.winId();
    QObject::connect(menu.windowHandle(), &QWindow::visibleChanged, &context_, [this](bool shows) {
        // The last moment before Qt destroys the surface.
        if (!shows)
            dropRole();
    });
    for (QMenu* const submenu : menu.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        submenus_.push_back(
            std::make_unique<SubmenuPopup>(context, *submenu, [this] { return surface_.get(); }));
    }
    makeRole(context, parent, place);
    context.connection.flush();
}

MenuPopup::~MenuPopup() {
    dropRole();
}

void MenuPopup::makeRole(const LayerShellContext& context, const LayerRole& parent,
                         const Place& place) {
    wl_surface* const surface = QtNative::surface(*menu_.windowHandle());
    const QSize size = menu_.sizeHint();
    const QPoint corner = inside(place.screen.geometry(), size, place.corner);
    surface_.reset(xdg_wm_base_get_xdg_surface(context.base.get(), surface));
    xdg_surface_add_listener(surface_.get(), &Events::surface, this);
    const auto position = PopupPosition::make(*context.base, size, place.parent, corner);
    popup_.reset(xdg_surface_get_popup(surface_.get(), nullptr, position.get()));
    xdg_popup_add_listener(popup_.get(), &Events::popup, this);
    parent.adopt(*popup_);
    if (wl_seat* const seat = QtNative::seat(context.connection))
        xdg_popup_grab(popup_.get(), seat, QtNative::inputSerial(context.connection));
    wl_surface_commit(surface);
}

/// Shows the menu only now, since nothing may be painted before the role is configured.
void MenuPopup::configured(std::uint32_t serial) {
    xdg_surface_ack_configure(surface_.get(), serial);
    if (!menu_.isVisible())
        menu_.popup(origin_ + placed_);
}

void MenuPopup::dropRole() {
    for (const auto& submenu : submenus_)
        submenu->dropRole();
    popup_.reset();
    surface_.reset();
}

}
