#include "VirtualDesktop/Screen/XClient.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

namespace vireline::desktop {
namespace {

constexpr std::uint32_t maximumPropertyItems = 1U << 20U;

const xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && screen.rem > 1; --number)
        xcb_screen_next(&screen);
    return screen.data;
}

template <class T>
std::vector<T> values(const xcb_get_property_reply_t& reply) {
    const auto bytes = static_cast<std::size_t>(xcb_get_property_value_length(&reply));
    const auto* first = static_cast<const T*>(xcb_get_property_value(&reply));
    return {first, first + (bytes / sizeof(T))};
}

}

XClient::XClient(const std::string& display) {
    int number = 0;
    connection_.reset(xcb_connect(display.c_str(), &number));
    if (xcb_connection_has_error(get()) != 0)
        throw std::runtime_error{"no X display " + display};
    screen_ = screenOf(get(), number);
}

bool XClient::hasExtension(const std::string& name) const {
    const auto cookie =
        xcb_query_extension(get(), static_cast<std::uint16_t>(name.size()), name.c_str());
    const Owned<xcb_query_extension_reply_t> reply{
        xcb_query_extension_reply(get(), cookie, nullptr)};
    return reply && reply->present != 0;
}

xcb_atom_t XClient::atom(std::string_view name) const {
    if (const auto known = atoms_.find(name); known != atoms_.end())
        return known->second;
    const auto cookie =
        xcb_intern_atom(get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(get(), cookie, nullptr)};
    const xcb_atom_t atom = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    atoms_.emplace(name, atom);
    return atom;
}

Owned<xcb_get_property_reply_t> XClient::property(xcb_window_t window,
                                                  std::string_view name) const {
    const auto cookie = xcb_get_property(get(), 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0,
                                         maximumPropertyItems);
    return Owned<xcb_get_property_reply_t>{xcb_get_property_reply(get(), cookie, nullptr)};
}

std::vector<std::uint32_t> XClient::items(xcb_window_t window, std::string_view name) const {
    const auto reply = property(window, name);
    constexpr int wordFormat = 32;
    if (!reply || reply->format != wordFormat)
        return {};
    return values<std::uint32_t>(*reply);
}

std::vector<xcb_atom_t> XClient::atoms(xcb_window_t window, std::string_view name) const {
    return items(window, name);
}

std::string XClient::text(xcb_window_t window, std::string_view name) const {
    const auto reply = property(window, name);
    constexpr int byteFormat = 8;
    if (!reply || reply->format != byteFormat)
        return {};
    const auto bytes = values<char>(*reply);
    return {bytes.begin(), bytes.end()};
}

bool XClient::hasProperty(xcb_window_t window, std::string_view name) const {
    const auto reply = property(window, name);
    return reply && reply->type != XCB_ATOM_NONE;
}

bool XClient::isManaged() const {
    const Owned<xcb_get_window_attributes_reply_t> reply{
        xcb_get_window_attributes_reply(get(), xcb_get_window_attributes(get(), root()), nullptr)};
    return reply && (reply->all_event_masks & XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT) != 0;
}

void XClient::setItems(xcb_window_t window, std::string_view name, xcb_atom_t type,
                       const std::vector<std::uint32_t>& values) const {
    xcb_change_property(get(), XCB_PROP_MODE_REPLACE, window, atom(name), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
    xcb_flush(get());
}

void XClient::setAtoms(xcb_window_t window, std::string_view name,
                       std::initializer_list<std::string_view> values) const {
    std::vector<std::uint32_t> atoms;
    for (const auto value : values)
        atoms.push_back(atom(value));
    setItems(window, name, XCB_ATOM_ATOM, atoms);
}

void XClient::setText(xcb_window_t window, std::string_view name, std::string_view value) const {
    setText(window, name, "UTF8_STRING", value);
}

void XClient::setText(xcb_window_t window, std::string_view name, std::string_view type,
                      std::string_view value) const {
    xcb_change_property(get(), XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 8,
                        static_cast<std::uint32_t>(value.size()), value.data());
    xcb_flush(get());
}

xcb_window_t XClient::selectionOwner(std::string_view selection) const {
    return x11::selectionOwner(get(), atom(selection));
}

void XClient::send(xcb_window_t window, std::string_view message,
                   const std::vector<std::uint32_t>& data) const {
    sendTo(window, XCB_EVENT_MASK_NO_EVENT, window, message, data);
}

void XClient::sendToRoot(xcb_window_t window, std::string_view message,
                         const std::vector<std::uint32_t>& data) const {
    sendTo(root(), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
           window, message, data);
}

void XClient::sendTo(xcb_window_t destination, std::uint32_t mask, xcb_window_t window,
                     std::string_view message, const std::vector<std::uint32_t>& data) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    constexpr std::size_t longestMessage = 5;
    std::copy_n(data.begin(), std::min(data.size(), longestMessage), std::begin(event.data.data32));
    sendEvent(get(), destination, mask, event);
    xcb_flush(get());
}

std::vector<xcb_window_t> XClient::children(xcb_window_t window) const {
    const Owned<xcb_query_tree_reply_t> reply{
        xcb_query_tree_reply(get(), xcb_query_tree(get(), window), nullptr)};
    if (!reply)
        return {};
    const auto* first = xcb_query_tree_children(reply.get());
    return {first, first + xcb_query_tree_children_length(reply.get())};
}

std::vector<xcb_window_t> XClient::allWindows() const {
    std::vector<xcb_window_t> found{root()};
    for (std::size_t next = 0; next < found.size(); ++next) {
        const auto below = children(found[next]);
        found.insert(found.end(), below.begin(), below.end());
    }
    found.erase(found.begin());
    return found;
}

std::vector<xcb_window_t> XClient::windowsAt(PixelPoint place) const {
    std::vector<xcb_window_t> found{root()};
    while (true) {
        const auto cookie = xcb_translate_coordinates(get(), root(), found.back(),
                                                      static_cast<std::int16_t>(place.x),
                                                      static_cast<std::int16_t>(place.y));
        const Owned<xcb_translate_coordinates_reply_t> below{
            xcb_translate_coordinates_reply(get(), cookie, nullptr)};
        if (!below || below->child == XCB_NONE)
            return found;
        found.push_back(below->child);
    }
}

std::optional<PixelRect> XClient::frame(xcb_window_t window) const {
    const auto geometryCookie = xcb_get_geometry(get(), window);
    const auto placeCookie = xcb_translate_coordinates(get(), window, root(), 0, 0);
    const Owned<xcb_get_geometry_reply_t> geometry{
        xcb_get_geometry_reply(get(), geometryCookie, nullptr)};
    const Owned<xcb_translate_coordinates_reply_t> place{
        xcb_translate_coordinates_reply(get(), placeCookie, nullptr)};
    if (!geometry || !place)
        return std::nullopt;
    return PixelRect{place->dst_x, place->dst_y, geometry->width, geometry->height};
}

bool XClient::isViewable(xcb_window_t window) const {
    const Owned<xcb_get_window_attributes_reply_t> reply{
        xcb_get_window_attributes_reply(get(), xcb_get_window_attributes(get(), window), nullptr)};
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

bool XClient::overridesRedirect(xcb_window_t window) const {
    const Owned<xcb_get_window_attributes_reply_t> reply{
        xcb_get_window_attributes_reply(get(), xcb_get_window_attributes(get(), window), nullptr)};
    return reply && reply->override_redirect != 0;
}

int XClient::depth(xcb_window_t window) const {
    const Owned<xcb_get_geometry_reply_t> reply{
        xcb_get_geometry_reply(get(), xcb_get_geometry(get(), window), nullptr)};
    return reply ? reply->depth : 0;
}

std::vector<xcb_window_t> XClient::managedWindows() const {
    return items(root(), "_NET_CLIENT_LIST");
}

xcb_window_t XClient::activeWindow() const {
    const auto active = items(root(), "_NET_ACTIVE_WINDOW");
    return active.empty() ? XCB_NONE : active.front();
}

xcb_window_t XClient::focusedWindow() const {
    const Owned<xcb_get_input_focus_reply_t> reply{
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr)};
    return reply ? reply->focus : XCB_NONE;
}

xcb_window_t XClient::createWindow(const PixelRect& frame, std::uint32_t background) const {
    const xcb_window_t window = xcb_generate_id(get());
    const std::uint32_t mask = XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK;
    const std::array<std::uint32_t, 2> values{background, XCB_EVENT_MASK_BUTTON_PRESS |
                                                              XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                                              XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(get(), XCB_COPY_FROM_PARENT, window, root(),
                      static_cast<std::int16_t>(frame.x), static_cast<std::int16_t>(frame.y),
                      static_cast<std::uint16_t>(frame.width),
                      static_cast<std::uint16_t>(frame.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, mask, values.data());
    return window;
}

void XClient::map(xcb_window_t window) const {
    xcb_map_window(get(), window);
    xcb_flush(get());
}

void XClient::destroy(xcb_window_t window) const {
    xcb_destroy_window(get(), window);
    xcb_flush(get());
}

Owned<xcb_generic_event_t> XClient::pollEvent() const {
    return Owned<xcb_generic_event_t>{xcb_poll_for_event(get())};
}

void XClient::sync() const {
    static_cast<void>(focusedWindow());
}

}
