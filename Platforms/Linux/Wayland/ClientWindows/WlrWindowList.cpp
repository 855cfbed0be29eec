#include "ClientWindows/WlrWindowList.hpp"

#include "Connection/EventText.hpp"
#include "Text/PlainText.hpp"

#include <wayland-client.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>

#include <algorithm>
#include <span>
#include <utility>

namespace vireline::wayland {

/// What the compositor reports.
struct WlrWindowList::Events {
    using HandleObject = zwlr_foreign_toplevel_handle_v1;
    using ManagerObject = zwlr_foreign_toplevel_manager_v1;

    static WlrWindowList& list(void* data) { return *static_cast<WlrWindowList*>(data); }

    static void toplevel(void* data, ManagerObject* /*manager*/, HandleObject* handle) {
        list(data).came(handle);
    }
    /// The compositor will list no more windows.
    static void finished(void* data, ManagerObject* /*manager*/) { list(data).finish(); }

    static void title(void* data, HandleObject* handle, const char* title) {
        if (Window* const window = list(data).handles_.find(handle))
            window->title = xdg::PlainText::clean(eventText(title));
    }
    static void appID(void* data, HandleObject* handle, const char* id) {
        if (Window* const window = list(data).handles_.find(handle))
            window->state.appID = xdg::PlainText::clean(eventText(id));
    }
    static void outputChanged(void* /*data*/, HandleObject* /*handle*/, wl_output* /*output*/) {}
    static void state(void* data, HandleObject* handle, wl_array* states) {
        Window* const window = list(data).handles_.find(handle);
        if (window == nullptr)
            return;
        const auto has = [states](std::uint32_t wanted) {
            const std::span all{static_cast<const std::uint32_t*>(states->data),
                                states->size / sizeof(std::uint32_t)};
            return std::ranges::find(all, wanted) != all.end();
        };
        window->state.isActive = has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_ACTIVATED);
        window->state.isMinimised = has(ZWLR_FOREIGN_TOPLEVEL_HANDLE_V1_STATE_MINIMIZED);
    }
    static void done(void* data, HandleObject* handle) {
        auto& self = list(data);
        // While the first list is read, the newest window comes first.
        const Window* const window = self.handles_.find(handle);
        if (window != nullptr && !self.handles_.isReadingFirst())
            self.set(window->id, window->state);
    }
    static void closed(void* data, HandleObject* handle) {
        if (const auto gone = list(data).handles_.remove(handle))
            list(data).remove(*gone);
    }
    static void parent(void* data, HandleObject* handle, HandleObject* parent) {
        if (Window* const window = list(data).handles_.find(handle))
            window->state.isDialog = parent != nullptr;
    }

    static constexpr zwlr_foreign_toplevel_manager_v1_listener manager{.toplevel = toplevel,
                                                                       .finished = finished};
    static constexpr zwlr_foreign_toplevel_handle_v1_listener handle{.title = title,
                                                                     .app_id = appID,
                                                                     .output_enter = outputChanged,
                                                                     .output_leave = outputChanged,
                                                                     .state = state,
                                                                     .done = done,
                                                                     .closed = closed,
                                                                     .parent = parent};
};

std::unique_ptr<WlrWindowList> WlrWindowList::create(const WaylandConnection& connection,
                                                     std::string ownAppID,
                                                     std::function<wl_seat*()> seat) {
    constexpr std::uint32_t newest = 3;
    auto manager = connection.bind<zwlr_foreign_toplevel_manager_v1>(
        zwlr_foreign_toplevel_manager_v1_interface, newest);
    if (!manager)
        return nullptr;
    return std::unique_ptr<WlrWindowList>{
        new WlrWindowList{connection, std::move(manager), std::move(ownAppID), std::move(seat)}};
}

WlrWindowList::WlrWindowList(const WaylandConnection& connection,
                             Proxy<zwlr_foreign_toplevel_manager_v1> manager, std::string ownAppID,
                             std::function<wl_seat*()> seat)
    : ToplevelList(std::move(ownAppID))
    , connection_(connection)
    , seat_(std::move(seat))
    , manager_(std::move(manager)) {
    readFirst();
}

WlrWindowList::~WlrWindowList() = default;

/// wlroots lists the newest window first.
void WlrWindowList::readFirst() {
    handles_.readFirst(connection_.display(), *manager_, 1, [this] {
        zwlr_foreign_toplevel_manager_v1_add_listener(manager_.get(), &Events::manager, this);
    });
    std::ranges::reverse(handles_.windows());
    for (Window& window : handles_.windows()) {
        window.id = nextID();
        set(window.id, window.state);
    }
}

void WlrWindowList::came(zwlr_foreign_toplevel_handle_v1* handle) {
    zwlr_foreign_toplevel_handle_v1_add_listener(handle, &Events::handle, this);
    handles_.add({Proxy<zwlr_foreign_toplevel_handle_v1>{handle}, nextID(), {}, {}});
}

void WlrWindowList::finish() {
    handles_.clear();
    removeAll();
}

zwlr_foreign_toplevel_handle_v1* WlrWindowList::handleOf(xdg::WindowID window) const {
    const Window* const found = handles_.find(window);
    return found == nullptr ? nullptr : found->handle.get();
}

void WlrWindowList::iconify(xdg::WindowID window) {
    if (auto* const handle = handleOf(window))
        zwlr_foreign_toplevel_handle_v1_set_minimized(handle);
}

void WlrWindowList::restore(xdg::WindowID window) {
    if (auto* const handle = handleOf(window))
        zwlr_foreign_toplevel_handle_v1_unset_minimized(handle);
}

void WlrWindowList::activate(xdg::WindowID window) {
    auto* const handle = handleOf(window);
    auto* const seat = seat_();
    if (handle != nullptr && seat != nullptr)
        zwlr_foreign_toplevel_handle_v1_activate(handle, seat);
}

void WlrWindowList::close(xdg::WindowID window) {
    if (auto* const handle = handleOf(window))
        zwlr_foreign_toplevel_handle_v1_close(handle);
}

}
