#include "Panels/Menus/SubmenuPopup.hpp"

#include "ClientWindows/FirstEvents.hpp"
#include "Connection/QtNative.hpp"
#include "Panels/Menus/PopupPosition.hpp"
#include "Panels/Surfaces/LayerShellContext.hpp"

#include <wayland-client.h>
#include <xdg-shell-client-protocol.h>

#include <QEvent>
#include <QMenu>
#include <QWindow>
#include <utility>

namespace vireline::wayland {

struct SubmenuPopup::Events {
    static void configureSurface(void* /*data*/, xdg_surface* surface, std::uint32_t serial) {
        xdg_surface_ack_configure(surface, serial);
    }
    static void configure(void* /*data*/, xdg_popup* /*popup*/, std::int32_t /*x*/,
                          std::int32_t /*y*/, std::int32_t /*width*/, std::int32_t /*height*/) {}
    static void done(void* data, xdg_popup* /*popup*/) {
        // It cannot be destroyed from its own event.
        QMenu* const submenu = &static_cast<SubmenuPopup*>(data)->submenu_;
        QMetaObject::invokeMethod(submenu, [submenu] { submenu->hide(); }, Qt::QueuedConnection);
    }
    static void repositioned(void* /*data*/, xdg_popup* /*popup*/, std::uint32_t /*token*/) {}

    static constexpr xdg_surface_listener surface{.configure = configureSurface};
    static constexpr xdg_popup_listener popup{
        .configure = configure, .popup_done = done, .repositioned = repositioned};
};

SubmenuPopup::SubmenuPopup(const LayerShellContext& context, QMenu& submenu,
                           std::function<xdg_surface*()> parentRole)
    : shell_(context), submenu_(submenu), parentRole_(std::move(parentRole)) {
    submenu.setWindowFlag(Qt::BypassWindowManagerHint);
    submenu.installEventFilter(this);
}

SubmenuPopup::~SubmenuPopup() {
    dropRole();
}

bool SubmenuPopup::eventFilter(QObject* watched, QEvent* event) {
    // Qt sends this when it has placed the menu, and before it shows it.
    if (event->type() == QEvent::Show && !event->spontaneous())
        makeRole();
    return QObject::eventFilter(watched, event);
}

/// If the menu was shown before, Qt has kept the window without its surface.
wl_surface* SubmenuPopup::freshSurface() {
    (void)submenu_.winId();
    QWindow& window = *submenu_.windowHandle();
    if (QtNative::surface(window) == nullptr) {
        window.destroy();
        window.create();
    }
    // Hidden: the last moment before Qt destroys the surface.
    QObject::disconnect(hidden_);
    hidden_ = QObject::connect(&window, &QWindow::visibleChanged, this, [this](bool shows) {
        if (!shows)
            dropRole();
    });
    return QtNative::surface(window);
}

void SubmenuPopup::makeRole() {
    auto* const parent = qobject_cast<QMenu*>(submenu_.parentWidget());
    xdg_surface* const parentRole = parentRole_();
    if (parent == nullptr || parentRole == nullptr)
        return;
    wl_surface* const surface = freshSurface();
    if (surface == nullptr)
        return;
    surface_.reset(xdg_wm_base_get_xdg_surface(shell_.base.get(), surface));
    const auto position =
        PopupPosition::make(*shell_.base, submenu_.size(), parent->geometry(), submenu_.pos());
    popup_.reset(xdg_surface_get_popup(surface_.get(), parentRole, position.get()));
    // Nothing may be painted before the compositor has configured the role, and Qt paints at once.
    FirstEvents first{shell_.connection.display()};
    first.add(reinterpret_cast<wl_proxy*>(surface_.get()));
    first.add(reinterpret_cast<wl_proxy*>(popup_.get()));
    xdg_surface_add_listener(surface_.get(), &Events::surface, this);
    xdg_popup_add_listener(popup_.get(), &Events::popup, this);
    wl_surface_commit(surface);
    first.wait();
}

void SubmenuPopup::dropRole() {
    popup_.reset();
    surface_.reset();
}

}
