#include "App/SingleInstance.hpp"

#include "Connection/X11Connection.hpp"

#include <QTimer>
#include <string>

namespace vireline::x11 {
namespace {

/// Type of the message with which a second start addresses the running instance; its first item is
/// the version of this protocol.
constexpr const char* claimMessage = "_VIRELINE_SHOW_SETTINGS";
constexpr std::uint32_t claimVersion = 1;

xcb_window_t makeWindow(const XServer& server) {
    xcb_connection_t* connection = server.connection();
    const xcb_window_t window = xcb_generate_id(connection);
    const std::uint32_t eventMask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, server.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &eventMask);
    return window;
}

/// The server's current time, which ICCCM requires for taking a selection. Appending nothing to a
/// property yields it even without input events.
xcb_timestamp_t serverTime(const XServer& server, xcb_window_t window) {
    xcb_connection_t* connection = server.connection();
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                        8, 0, nullptr);
    xcb_flush(connection);
    while (const Owned<xcb_generic_event_t> event{xcb_wait_for_event(connection)}) {
        if (eventType(*event) == XCB_PROPERTY_NOTIFY)
            return as<xcb_property_notify_event_t>(*event).time;
    }
    return XCB_CURRENT_TIME;
}

/// Returns the selection's owner; if there was none, `window` becomes the owner. The server is
/// grabbed between the query and the claim, so two simultaneous starts cannot both find it free.
xcb_window_t ownerOrTake(const XServer& server, xcb_atom_t selection, xcb_window_t window) {
    xcb_connection_t* connection = server.connection();
    const xcb_timestamp_t time = serverTime(server, window);
    xcb_grab_server(connection);
    const xcb_window_t owner = selectionOwner(server.connection(), selection);
    if (owner == XCB_NONE)
        xcb_set_selection_owner(connection, window, selection, time);
    xcb_ungrab_server(connection);
    xcb_flush(connection);
    return owner;
}

/// Asks the current owner, and waits until the server has delivered the message.
void sendClaim(const XServer& server, xcb_window_t owner, xcb_atom_t type) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = owner;
    message.type = type;
    message.data.data32[0] = claimVersion;
    sendEvent(server.connection(), owner, XCB_EVENT_MASK_NO_EVENT, message);
    const Owned<xcb_get_input_focus_reply_t> passed{xcb_get_input_focus_reply(
        server.connection(), xcb_get_input_focus(server.connection()), nullptr)};
}

}

std::unique_ptr<SingleInstance> SingleInstance::claim(XServer server) {
    const xcb_atom_t selection = server.atom("_VIRELINE_S" + std::to_string(server.screenNumber()));
    const xcb_atom_t claim = server.atom(claimMessage);
    const xcb_window_t window = makeWindow(server);
    const xcb_window_t owner = ownerOrTake(server, selection, window);
    if (owner != XCB_NONE) {
        sendClaim(server, owner, claim);
        return nullptr;
    }
    return std::unique_ptr<SingleInstance>{new SingleInstance{std::move(server), window, claim}};
}

SingleInstance::SingleInstance(XServer server, xcb_window_t window, xcb_atom_t claim)
    : server_(std::move(server)), window_(window), claim_(claim) {}

Subscription SingleInstance::observe(std::function<void()> handler) {
    auto subscription = claims_.add(std::move(handler));
    if (!notifier_)
        listen();
    return subscription;
}

void SingleInstance::listen() {
    notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(server_.connection()),
                                                  QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
    // Events that arrived along with earlier replies are already queued in memory, and the socket
    // will not signal them.
    QTimer::singleShot(0, notifier_.get(), [this] { readEvents(); });
}

void SingleInstance::readEvents() {
    int claims = 0;
    while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(server_.connection())}) {
        if (eventType(*event) == XCB_CLIENT_MESSAGE)
            claims += isClaim(as<xcb_client_message_event_t>(*event)) ? 1 : 0;
        else if (eventType(*event) == XCB_SELECTION_REQUEST)
            refuse(as<xcb_selection_request_event_t>(*event));
    }
    // A closed connection stays readable forever.
    if (xcb_connection_has_error(server_.connection()) != 0)
        notifier_->setEnabled(false);
    if (claims > 0)
        claims_.notify();
}

bool SingleInstance::isClaim(const xcb_client_message_event_t& message) const {
    return message.type == claim_ && message.format == 32 && message.window == window_ &&
           message.data.data32[0] == claimVersion;
}

/// The selection has no content, but ICCCM requires the owner to answer every request.
void SingleInstance::refuse(const xcb_selection_request_event_t& request) const {
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = request.time;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = XCB_NONE;
    sendEvent(server_.connection(), request.requestor, XCB_EVENT_MASK_NO_EVENT, answer);
    xcb_flush(server_.connection());
}

}
