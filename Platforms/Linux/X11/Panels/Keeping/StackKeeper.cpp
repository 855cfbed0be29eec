#include "Panels/Keeping/StackKeeper.hpp"

#include "Connection/PropertyBatch.hpp"
#include "Connection/X11Connection.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <utility>

namespace vireline::x11 {
namespace {

/// A window manager takes some time to complete one change.
constexpr std::chrono::milliseconds stackingPause{100};

std::vector<xcb_window_t> children(xcb_connection_t* x, xcb_query_tree_cookie_t cookie) {
    const Owned<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(x, cookie, nullptr)};
    if (!tree)
        return {};
    const std::span all{xcb_query_tree_children(tree.get()),
                        static_cast<std::size_t>(xcb_query_tree_children_length(tree.get()))};
    return {all.begin(), all.end()};
}

}

StackKeeper::StackKeeper(const X11Connection& connection, xcb_window_t window,
                         const PixelRect& screen)
    : connection_(connection)
    , window_(window)
    , screen_(screen)
    , topLevels_(connection.watchTopLevels()) {
    pause_.setSingleShot(true);
    pause_.setInterval(stackingPause);
    pause_.callOnTimeout([this] {
        if (std::exchange(isLookDue_, false))
            look();
    });
    lookSoon();
}

void StackKeeper::handle(const xcb_generic_event_t& event) {
    if (concerns(event))
        lookSoon();
}

bool StackKeeper::concerns(const xcb_generic_event_t& event) const {
    const xcb_window_t root = connection_.root();
    switch (eventType(event)) {
    case XCB_MAP_NOTIFY:
        return as<xcb_map_notify_event_t>(event).event == root;
    case XCB_UNMAP_NOTIFY:
        return as<xcb_unmap_notify_event_t>(event).event == root;
    case XCB_CONFIGURE_NOTIFY: {
        const auto& change = as<xcb_configure_notify_event_t>(event);
        return change.event == root && change.window != window_ &&
               (change.override_redirect == 0 || std::ranges::count(frames_, change.window) > 0);
    }
    case XCB_PROPERTY_NOTIFY:
        return as<xcb_property_notify_event_t>(event).atom == connection_.atom("_NET_WM_STATE");
    default:
        return false;
    }
}

/// Checks at once, and again when the pause ends and the change is complete.
void StackKeeper::lookSoon() {
    isLookDue_ = true;
    if (pause_.isActive())
        return;
    pause_.start();
    look();
}

void StackKeeper::look() {
    findFrames();
    const auto restacking = DockStacking::restacking(stack(), window_);
    if (!restacking || !budget_.take(CorrectionBudget::Time::clock::now()))
        return;
    const std::array<std::uint32_t, 2> values{
        restacking->sibling,
        static_cast<std::uint32_t>(restacking->isAbove ? XCB_STACK_MODE_ABOVE
                                                       : XCB_STACK_MODE_BELOW)};
    xcb_configure_window(connection_.get(), window_,
                         XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
    connection_.flush();
}

/// Finds the frames in which a window manager has put its clients.
void StackKeeper::findFrames() {
    xcb_connection_t* const x = connection_.get();
    std::vector<xcb_query_tree_cookie_t> asked;
    for (const xcb_window_t client : connection_.windows(connection_.root(), "_NET_CLIENT_LIST"))
        asked.push_back(xcb_query_tree(x, client));
    frames_.clear();
    for (const xcb_query_tree_cookie_t cookie : asked) {
        const Owned<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(x, cookie, nullptr)};
        if (tree && tree->parent != connection_.root())
            frames_.push_back(tree->parent);
    }
}

/// Mapped, and not override-redirect, as menus, notifications and lock screens are. Some window
/// managers' frames are override-redirect too.
bool StackKeeper::counts(xcb_window_t window,
                         const xcb_get_window_attributes_reply_t& attributes) const {
    return attributes.map_state == XCB_MAP_STATE_VIEWABLE &&
           attributes._class == XCB_WINDOW_CLASS_INPUT_OUTPUT &&
           (attributes.override_redirect == 0 || std::ranges::count(frames_, window) > 0);
}

std::vector<StackedWindow> StackKeeper::stack() const {
    xcb_connection_t* const x = connection_.get();
    struct Asked {
        xcb_window_t window;
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_geometry_cookie_t geometry;
    };
    std::vector<Asked> asked;
    for (const xcb_window_t window : children(x, xcb_query_tree(x, connection_.root()))) {
        asked.push_back(
            {window, xcb_get_window_attributes(x, window), xcb_get_geometry(x, window)});
    }
    std::vector<StackedWindow> windows;
    for (const Asked& question : asked) {
        const Owned<xcb_get_window_attributes_reply_t> attributes{
            xcb_get_window_attributes_reply(x, question.attributes, nullptr)};
        const Owned<xcb_get_geometry_reply_t> geometry{
            xcb_get_geometry_reply(x, question.geometry, nullptr)};
        if (!attributes || !geometry ||
            (question.window != window_ && !counts(question.window, *attributes)))
            continue;
        const int border = 2 * geometry->border_width;
        windows.push_back(
            {question.window,
             {geometry->x, geometry->y, geometry->width + border, geometry->height + border}});
    }
    findFullScreen(windows);
    return windows;
}

/// A full-screen window may be inside a frame, which then covers the screen as well. Without a
/// manager, no state marks windows as full-screen.
void StackKeeper::findFullScreen(std::vector<StackedWindow>& windows) const {
    constexpr std::size_t atomsBytes = 32 * sizeof(std::uint32_t);
    xcb_connection_t* const x = connection_.get();
    std::vector<std::pair<StackedWindow*, xcb_query_tree_cookie_t>> candidates;
    for (StackedWindow& window : windows) {
        if (window.id != window_ && window.frame.overlap(screen_) == screen_.overlap(screen_))
            candidates.emplace_back(&window, xcb_query_tree(x, window.id));
    }
    if (candidates.empty())
        return;
    const bool hasManager = connection_.isManaged();
    for (const auto& [window, tree] : candidates) {
        PropertyBatch properties{connection_};
        const auto has = [&](std::size_t request, std::string_view atom) {
            const auto atoms = properties.items(request, XCB_ATOM_ATOM);
            return std::ranges::count(atoms, connection_.atom(atom)) > 0;
        };
        const auto type = properties.ask(window->id, "_NET_WM_WINDOW_TYPE", atomsBytes);
        std::size_t last = properties.ask(window->id, "_NET_WM_STATE", atomsBytes);
        for (const xcb_window_t child : children(x, tree))
            last = properties.ask(child, "_NET_WM_STATE", atomsBytes);
        window->isFullScreen = !hasManager && !has(type, "_NET_WM_WINDOW_TYPE_DESKTOP");
        for (std::size_t request = type + 1; request <= last; ++request) {
            window->isFullScreen = window->isFullScreen || has(request, "_NET_WM_STATE_FULLSCREEN");
        }
    }
}

}
