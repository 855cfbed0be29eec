#include "Panels/Context/DesktopWatch.hpp"

#include "Connection/X11Connection.hpp"
#include "Files/Log/StartLog.hpp"

#include <xcb/xfixes.h>

#include <algorithm>
#include <span>

namespace vireline::x11 {
namespace {

constexpr const char* blurSupport = "_KDE_NET_WM_BLUR_BEHIND_REGION";

}

DesktopWatch::DesktopWatch(X11Connection& connection)
    : connection_(connection)
    , compositorSelection_("_NET_WM_CM_S" + std::to_string(connection.screenNumber()))
    , events_(connection.observe([this](const xcb_generic_event_t& event) { handle(event); })) {
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    watchCompositor();
    watchWindowManager();
    offer_.set(read());
    if (!offer().isComposited)
        xdg::logOnceStarted("no compositor, docks are opaque");
}

/// Without XFixes, changes of the compositor after start-up go unnoticed.
void DesktopWatch::watchCompositor() {
    const auto* extension = xcb_get_extension_data(connection_.get(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0)
        return;
    const Owned<xcb_xfixes_query_version_reply_t> version{xcb_xfixes_query_version_reply(
        connection_.get(),
        xcb_xfixes_query_version(connection_.get(), XCB_XFIXES_MAJOR_VERSION,
                                 XCB_XFIXES_MINOR_VERSION),
        nullptr)};
    if (!version)
        return;
    selectionEvent_ =
        static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(connection_.get(), connection_.root(),
                                      connection_.atom(compositorSelection_),
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    connection_.flush();
}

void DesktopWatch::watchWindowManager() {
    const auto marks = connection_.windows(connection_.root(), "_NET_SUPPORTING_WM_CHECK");
    managerMark_ = marks.empty() ? XCB_NONE : marks.front();
    if (managerMark_ != XCB_NONE)
        connection_.selectInput(managerMark_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

void DesktopWatch::handle(const xcb_generic_event_t& event) {
    const auto kind = eventType(event);
    if (kind == XCB_PROPERTY_NOTIFY) {
        const auto& change = as<xcb_property_notify_event_t>(event);
        if (change.window != connection_.root())
            return;
        if (change.atom == connection_.atom("_NET_SUPPORTED") ||
            change.atom == connection_.atom(blurSupport)) {
            offer_.set(read());
        } else if (change.atom == connection_.atom("_NET_SUPPORTING_WM_CHECK") &&
                   change.state == XCB_PROPERTY_NEW_VALUE) {
            misplacesDocks_ = false;
            watchWindowManager();
            windowManager_.notify();
        }
    } else if (kind == XCB_DESTROY_NOTIFY) {
        const auto& end = as<xcb_destroy_notify_event_t>(event);
        if (managerMark_ != XCB_NONE && end.window == managerMark_) {
            managerMark_ = XCB_NONE;
            misplacesDocks_ = false;
            windowManager_.notify();
        }
    } else if (selectionEvent_ != 0 && kind == selectionEvent_) {
        const auto& change = as<xcb_xfixes_selection_notify_event_t>(event);
        if (change.selection == connection_.atom(compositorSelection_))
            offer_.set(read());
    }
}

DesktopOffer DesktopWatch::read() const {
    if (selectionOwner(connection_.get(), connection_.atom(compositorSelection_)) == XCB_NONE)
        return {};
    return {.isComposited = true, .blursBehind = announcesBlur()};
}

/// Compositors announce blur either in the list of features that the window manager supports, or by
/// the mere presence of a property on the root window.
bool DesktopWatch::announcesBlur() const {
    const xcb_atom_t blur = connection_.atom(blurSupport);
    if (std::ranges::count(connection_.atoms(connection_.root(), "_NET_SUPPORTED"), blur) > 0)
        return true;
    const Owned<xcb_list_properties_reply_t> reply{xcb_list_properties_reply(
        connection_.get(), xcb_list_properties(connection_.get(), connection_.root()), nullptr)};
    if (!reply)
        return false;
    const std::span properties{
        xcb_list_properties_atoms(reply.get()),
        static_cast<std::size_t>(xcb_list_properties_atoms_length(reply.get()))};
    return std::ranges::count(properties, blur) > 0;
}

}
