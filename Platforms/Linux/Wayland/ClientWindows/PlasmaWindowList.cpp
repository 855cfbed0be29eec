#include "ClientWindows/PlasmaWindowList.hpp"

#include "Connection/EventText.hpp"
#include "Text/PlainText.hpp"

#include <plasma-window-management-client-protocol.h>
#include <wayland-client.h>

#include <algorithm>
#include <sstream>
#include <utility>

namespace vireline::wayland {
namespace {

using PlasmaHandle = org_kde_plasma_window;
using PlasmaManager = org_kde_plasma_window_management;

/// The oldest version that names windows by UUID.
constexpr std::uint32_t oldestVersion =
    ORG_KDE_PLASMA_WINDOW_MANAGEMENT_WINDOW_WITH_UUID_SINCE_VERSION;
constexpr std::uint32_t newestVersion = 16;

std::string cleaned(const char* text) {
    return xdg::PlainText::clean(eventText(text));
}

}

/// What KWin reports.
struct PlasmaWindowList::Events {
    static PlasmaWindowList& list(void* data) { return *static_cast<PlasmaWindowList*>(data); }

    /// Takes over what an event says about a window.
    template <class Take>
    static void update(void* data, PlasmaHandle* handle, const Take& take) {
        auto& self = list(data);
        if (Window* const window = self.handles_.find(handle)) {
            take(*window);
            self.changed(*window);
        }
    }

    static void ignoreState(void* /*data*/, PlasmaManager* /*manager*/, std::uint32_t /*state*/) {}
    static void ignoreArray(void* /*data*/, PlasmaManager* /*manager*/, wl_array* /*numbers*/) {}
    static void stacking(void* data, PlasmaManager* /*manager*/, const char* uuids) {
        list(data).stacking_ = eventText(uuids);
    }
    static void window(void* data, PlasmaManager* /*manager*/, std::uint32_t /*number*/,
                       const char* uuid) {
        list(data).came(std::string{eventText(uuid)});
    }

    static void title(void* data, PlasmaHandle* handle, const char* text) {
        if (Window* const window = list(data).handles_.find(handle))
            window->title = cleaned(text);
    }
    static void appID(void* data, PlasmaHandle* handle, const char* id) {
        update(data, handle, [id](Window& window) { window.state.appID = cleaned(id); });
    }
    static void state(void* data, PlasmaHandle* handle, std::uint32_t flags) {
        const auto has = [flags](std::uint32_t flag) { return (flags & flag) != 0; };
        update(data, handle, [&has](Window& window) {
            window.state.isActive = has(ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE);
            window.state.isMinimised = has(ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_MINIMIZED);
            window.state.isUrgent = has(ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_DEMANDS_ATTENTION);
            window.details.isMaximised = has(ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_MAXIMIZED);
            window.details.isFullScreen = has(ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_FULLSCREEN);
            window.state.isSkipped = has(ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_SKIPTASKBAR);
        });
    }
    static void unmapped(void* data, PlasmaHandle* handle) {
        if (const auto gone = list(data).handles_.remove(handle))
            list(data).remove(*gone);
    }
    static void described(void* data, PlasmaHandle* handle) {
        update(data, handle, [](Window& window) { window.isDescribed = true; });
    }
    static void parent(void* data, PlasmaHandle* handle, PlasmaHandle* parent) {
        update(data, handle,
               [parent](Window& window) { window.state.isDialog = parent != nullptr; });
    }
    static void geometry(void* data, PlasmaHandle* handle, std::int32_t x, std::int32_t y,
                         std::uint32_t width, std::uint32_t height) {
        if (Window* const window = list(data).handles_.find(handle))
            window->details.frame = {static_cast<double>(x), static_cast<double>(y),
                                     static_cast<double>(width), static_cast<double>(height)};
    }
    static void process(void* data, PlasmaHandle* handle, std::uint32_t identifier) {
        update(data, handle, [identifier](Window& window) {
            window.state.processIdentifier = static_cast<std::int32_t>(identifier);
        });
    }
    static void ignoreNumber(void* /*data*/, PlasmaHandle* /*handle*/, std::int32_t /*number*/) {}
    static void ignoreText(void* /*data*/, PlasmaHandle* /*handle*/, const char* /*text*/) {}
    static void ignoreMenu(void* /*data*/, PlasmaHandle* /*handle*/, const char* /*service*/,
                           const char* /*path*/) {}
    static void ignoreIcon(void* /*data*/, PlasmaHandle* /*handle*/) {}
    static void ignoreOldWindow(void* /*data*/, PlasmaManager* /*manager*/,
                                std::uint32_t /*number*/) {}

    static constexpr org_kde_plasma_window_management_listener manager{
        .show_desktop_changed = ignoreState,
        .window = ignoreOldWindow,
        .stacking_order_changed = ignoreArray,
        .stacking_order_uuid_changed = stacking,
        .window_with_uuid = window};
    static constexpr org_kde_plasma_window_listener handle{.title_changed = title,
                                                           .app_id_changed = appID,
                                                           .state_changed = state,
                                                           .virtual_desktop_changed = ignoreNumber,
                                                           .themed_icon_name_changed = ignoreText,
                                                           .unmapped = unmapped,
                                                           .initial_state = described,
                                                           .parent_window = parent,
                                                           .geometry = geometry,
                                                           .icon_changed = ignoreIcon,
                                                           .pid_changed = process,
                                                           .virtual_desktop_entered = ignoreText,
                                                           .virtual_desktop_left = ignoreText,
                                                           .application_menu = ignoreMenu,
                                                           .activity_entered = ignoreText,
                                                           .activity_left = ignoreText,
                                                           .resource_name_changed = ignoreText};
};

std::unique_ptr<PlasmaWindowList> PlasmaWindowList::create(const WaylandConnection& connection,
                                                           std::string ownAppID) {
    if (connection.offered(org_kde_plasma_window_management_interface.name) < oldestVersion)
        return nullptr;
    auto manager =
        connection.bind<PlasmaManager>(org_kde_plasma_window_management_interface, newestVersion);
    return std::unique_ptr<PlasmaWindowList>{
        new PlasmaWindowList{connection, std::move(manager), std::move(ownAppID)}};
}

PlasmaWindowList::PlasmaWindowList(const WaylandConnection& connection,
                                   Proxy<org_kde_plasma_window_management> manager,
                                   std::string ownAppID)
    : ToplevelList(std::move(ownAppID)), connection_(connection), manager_(std::move(manager)) {
    readFirst();
}

PlasmaWindowList::~PlasmaWindowList() = default;

/// KWin names the windows first, and describes each when asked for it. Windows that are higher are
/// taken to have been active later.
void PlasmaWindowList::readFirst() {
    handles_.readFirst(connection_.display(), *manager_, 2, [this] {
        org_kde_plasma_window_management_add_listener(manager_.get(), &Events::manager, this);
    });
    const auto& windows = handles_.windows();
    for (const Window& window : windows)
        changed(window);
    std::istringstream order{stacking_};
    for (std::string uuid; std::getline(order, uuid, ';');) {
        const auto window = std::ranges::find_if(
            windows, [&uuid](const Window& each) { return each.details.uuid == uuid; });
        if (window == windows.end() || !window->isDescribed)
            continue;
        ToplevelState active = window->state;
        active.isActive = true;
        set(window->id, active);
    }
    for (const Window& window : windows)
        changed(window);
}

void PlasmaWindowList::came(const std::string& uuid) {
    auto* const handle =
        org_kde_plasma_window_management_get_window_by_uuid(manager_.get(), uuid.c_str());
    org_kde_plasma_window_add_listener(handle, &Events::handle, this);
    handles_.add({.handle = Proxy<org_kde_plasma_window>{handle},
                  .id = nextID(),
                  .details = {.uuid = uuid, .frame = {}},
                  .state = {},
                  .title = {},
                  .isDescribed = false});
}

void PlasmaWindowList::changed(const Window& window) {
    if (window.isDescribed && !handles_.isReadingFirst())
        set(window.id, window.state);
}

std::optional<KWinWindow> PlasmaWindowList::details(xdg::WindowID window) const {
    const Window* const found = handles_.find(window);
    return found == nullptr ? std::nullopt : std::optional{found->details};
}

void PlasmaWindowList::iconify(xdg::WindowID window) {
    setMinimised(window, true);
}

void PlasmaWindowList::restore(xdg::WindowID window) {
    setMinimised(window, false);
}

void PlasmaWindowList::setMinimised(xdg::WindowID window, bool isMinimised) {
    constexpr std::uint32_t flag = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_MINIMIZED;
    if (const Window* const found = handles_.find(window))
        org_kde_plasma_window_set_state(found->handle.get(), flag, isMinimised ? flag : 0);
}

void PlasmaWindowList::activate(xdg::WindowID window) {
    constexpr std::uint32_t flag = ORG_KDE_PLASMA_WINDOW_MANAGEMENT_STATE_ACTIVE;
    if (const Window* const found = handles_.find(window))
        org_kde_plasma_window_set_state(found->handle.get(), flag, flag);
}

void PlasmaWindowList::close(xdg::WindowID window) {
    if (const Window* const found = handles_.find(window))
        org_kde_plasma_window_close(found->handle.get());
}

}
