#include "Connection/X11Connection.hpp"

#include "Connection/XcbHandles.hpp"
#include "Foundation/Require.hpp"

#include <xcb/xinput.h>

#include <QGuiApplication>
#include <algorithm>
#include <cstring>

namespace vireline::x11 {
namespace {

using PropertyReply = Owned<xcb_get_property_reply_t>;

template <class T>
std::span<const T> contentAs(const PropertyReply& reply) {
    const auto bytes = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    return {static_cast<const T*>(xcb_get_property_value(reply.get())), bytes / sizeof(T)};
}

PropertyReply property(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name,
                       xcb_atom_t type) {
    const auto cookie = xcb_get_property(connection, 0, window, name, type, 0,
                                         X11Connection::maximumPropertyBytes / 4);
    return PropertyReply{xcb_get_property_reply(connection, cookie, nullptr)};
}

xcb_connection_t* connectionOfQt() {
    const auto* native = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    require(native != nullptr, "the application runs on the xcb platform plugin");
    return native->connection();
}

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* connection, std::string_view name) {
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

/// 0 if the server does not have the extension.
std::uint8_t opcodeOf(xcb_connection_t* connection, std::string_view extension) {
    const auto cookie = xcb_query_extension(
        connection, static_cast<std::uint16_t>(extension.size()), extension.data());
    const Owned<xcb_query_extension_reply_t> reply{
        xcb_query_extension_reply(connection, cookie, nullptr)};
    return reply && reply->present != 0 ? reply->major_opcode : std::uint8_t{0};
}

/// The time of a button or key press; nullopt for other events.
std::optional<xcb_timestamp_t> pressTime(const xcb_generic_event_t& event,
                                         std::uint8_t inputExtension) {
    const int type = eventType(event);
    if (type == XCB_BUTTON_PRESS || type == XCB_KEY_PRESS)
        return as<xcb_button_press_event_t>(event).time;
    if (type != XCB_GE_GENERIC)
        return std::nullopt;
    // All device events have the same layout up to the time.
    xcb_input_button_press_event_t press{};
    std::memcpy(&press, &event, sizeof event);
    const bool isPress =
        press.event_type == XCB_INPUT_BUTTON_PRESS || press.event_type == XCB_INPUT_KEY_PRESS;
    return press.extension == inputExtension && isPress ? std::optional{press.time} : std::nullopt;
}

}

// Qt uses the screen that DISPLAY names, which is practically always 0.
X11Connection::X11Connection()
    : connection_(connectionOfQt())
    , root_(rootOf(connection_, screenNumber_))
    , inputExtension_(opcodeOf(connection_, "XInputExtension")) {
    qGuiApp->installNativeEventFilter(this);
}

X11Connection::~X11Connection() {
    if (qGuiApp != nullptr)
        qGuiApp->removeNativeEventFilter(this);
}

xcb_atom_t X11Connection::atom(std::string_view name) const {
    const auto [entry, isNew] = atoms_.try_emplace(std::string{name}, XCB_ATOM_NONE);
    if (!isNew)
        return entry->second;
    const auto cookie = askForAtom(connection_, name);
    const Owned<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(connection_, cookie, nullptr)};
    if (reply)
        entry->second = reply->atom;
    return entry->second;
}

void X11Connection::intern(std::span<const std::string_view> names) const {
    std::vector<std::pair<std::string_view, xcb_intern_atom_cookie_t>> asked;
    for (const std::string_view name : names) {
        if (!atoms_.contains(std::string{name}))
            asked.emplace_back(name, askForAtom(connection_, name));
    }
    for (const auto& [name, cookie] : asked) {
        const Owned<xcb_intern_atom_reply_t> reply{
            xcb_intern_atom_reply(connection_, cookie, nullptr)};
        atoms_[std::string{name}] = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
}

std::string X11Connection::atomName(xcb_atom_t atom) const {
    const Owned<xcb_get_atom_name_reply_t> reply{
        xcb_get_atom_name_reply(connection_, xcb_get_atom_name(connection_, atom), nullptr)};
    if (!reply)
        return {};
    const auto length = static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()));
    return {xcb_get_atom_name_name(reply.get()), length};
}

std::vector<std::uint32_t> X11Connection::items(xcb_window_t window, std::string_view name,
                                                xcb_atom_t type) const {
    const auto reply = property(connection_, window, atom(name), type);
    if (!reply || reply->type != type || reply->format != 32)
        return {};
    const auto values = contentAs<std::uint32_t>(reply);
    return {values.begin(), values.end()};
}

std::optional<std::string> X11Connection::text(xcb_window_t window, std::string_view name) const {
    const auto reply = property(connection_, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY);
    if (!reply || reply->format != 8)
        return std::nullopt;
    if (reply->type != XCB_ATOM_STRING && reply->type != atom("UTF8_STRING"))
        return std::nullopt;
    const auto bytes = contentAs<char>(reply);
    return std::string{bytes.begin(), bytes.end()};
}

std::string X11Connection::bytes(xcb_window_t window, std::string_view name,
                                 std::string_view type) const {
    const xcb_atom_t typeAtom = atom(type);
    const auto reply = property(connection_, window, atom(name), typeAtom);
    if (!reply || reply->type != typeAtom || reply->format != 8)
        return {};
    const auto bytes = contentAs<char>(reply);
    return {bytes.begin(), bytes.end()};
}

std::vector<xcb_atom_t> X11Connection::atoms(xcb_window_t window, std::string_view name) const {
    return items(window, name, XCB_ATOM_ATOM);
}

std::vector<xcb_window_t> X11Connection::windows(xcb_window_t window, std::string_view name) const {
    return items(window, name, XCB_ATOM_WINDOW);
}

void X11Connection::setItems(xcb_window_t window, std::string_view name, xcb_atom_t type,
                             std::span<const std::uint32_t> values) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(name), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void X11Connection::setText(xcb_window_t window, std::string_view name,
                            std::string_view text) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(name), atom("UTF8_STRING"),
                        8, static_cast<std::uint32_t>(text.size()), text.data());
}

void X11Connection::selectInput(xcb_window_t window, std::uint32_t eventMask) const {
    selectInput(std::span{&window, 1}, eventMask);
}

void X11Connection::selectInput(std::span<const xcb_window_t> windows,
                                std::uint32_t eventMask) const {
    std::vector<xcb_get_window_attributes_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const xcb_window_t window : windows)
        cookies.push_back(xcb_get_window_attributes(connection_, window));
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const Owned<xcb_get_window_attributes_reply_t> attributes{
            xcb_get_window_attributes_reply(connection_, cookies[i], nullptr)};
        if (!attributes)
            continue;
        const std::uint32_t mask = attributes->your_event_mask | eventMask;
        if (mask != attributes->your_event_mask)
            xcb_change_window_attributes(connection_, windows[i], XCB_CW_EVENT_MASK, &mask);
    }
}

void X11Connection::deselectInput(xcb_window_t window, std::uint32_t eventMask) const {
    const Owned<xcb_get_window_attributes_reply_t> attributes{xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr)};
    if (!attributes)
        return;
    const std::uint32_t mask = attributes->your_event_mask & ~eventMask;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &mask);
}

Subscription X11Connection::watchTopLevels() const {
    if (const auto shared = topLevels_.lock())
        return Subscription{shared};
    selectInput(root_, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    auto ended = std::make_shared<Subscription>(Subscription::calling(
        [this] { deselectInput(root_, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY); }));
    topLevels_ = ended;
    return Subscription{std::move(ended)};
}

bool X11Connection::isOwn(xcb_window_t window) const noexcept {
    const xcb_setup_t& setup = *xcb_get_setup(connection_);
    return (window & ~setup.resource_id_mask) == setup.resource_id_base;
}

bool X11Connection::isManaged() const {
    const Owned<xcb_get_window_attributes_reply_t> root{xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, root_), nullptr)};
    return root && (root->all_event_masks & XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT) != 0;
}

void X11Connection::sendToRoot(xcb_window_t window, std::string_view message,
                               std::span<const std::uint32_t> data) const {
    send(root_, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY, window,
         message, data);
}

void X11Connection::sendToWindow(xcb_window_t window, std::string_view message,
                                 std::span<const std::uint32_t> data) const {
    send(window, XCB_EVENT_MASK_NO_EVENT, window, message, data);
}

void X11Connection::send(xcb_window_t destination, std::uint32_t eventMask, xcb_window_t window,
                         std::string_view message, std::span<const std::uint32_t> data) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(data.first(std::min<std::size_t>(data.size(), 5)), event.data.data32);
    sendEvent(connection_, destination, eventMask, event);
}

void X11Connection::flush() const {
    xcb_flush(connection_);
}

void X11Connection::finish() const {
    const Owned<xcb_get_input_focus_reply_t> answer{
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr)};
}

Subscription X11Connection::observe(std::function<void(const xcb_generic_event_t&)> handler) {
    return events_.add(std::move(handler));
}

bool X11Connection::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type == "xcb_generic_event_t") {
        const auto& event = *static_cast<const xcb_generic_event_t*>(message);
        if (const auto time = pressTime(event, inputExtension_))
            userTime_ = *time;
        events_.notify(event);
    }
    return false;
}

}
