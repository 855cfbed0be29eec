#include "Displays/StrutWindows.hpp"

#include "X11/X11Connection.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

namespace vireline::x11 {
namespace {

/// Far more than any desktop has; a client list can be of any length.
constexpr std::size_t maximumWindows = 4096;

/// What is asked about one window, all windows at once.
struct Query {
    xcb_window_t window = XCB_NONE;
    xcb_get_property_cookie_t partial{};
    xcb_get_property_cookie_t plain{};
    xcb_get_property_cookie_t type{};
    xcb_get_geometry_cookie_t geometry{};
    xcb_translate_coordinates_cookie_t corner{};
    xcb_get_window_attributes_cookie_t attributes{};
};

struct Answer {
    std::optional<StrutWindow> strut;
    /// It reserves room, or may begin to.
    bool isWatched = false;
};

class Batch {
public:
    explicit Batch(const X11Connection& connection)
        : connection_(connection)
        , partial_(connection.atom("_NET_WM_STRUT_PARTIAL"))
        , plain_(connection.atom("_NET_WM_STRUT"))
        , type_(connection.atom("_NET_WM_WINDOW_TYPE"))
        , dock_(connection.atom("_NET_WM_WINDOW_TYPE_DOCK")) {}

    [[nodiscard]] Query ask(xcb_window_t window) const {
        xcb_connection_t* const x = connection_.get();
        return {window,
                property(window, partial_, XCB_ATOM_CARDINAL),
                property(window, plain_, XCB_ATOM_CARDINAL),
                property(window, type_, XCB_ATOM_ATOM),
                xcb_get_geometry(x, window),
                xcb_translate_coordinates(x, window, connection_.root(), 0, 0),
                xcb_get_window_attributes(x, window)};
    }

    [[nodiscard]] Answer answer(const Query& query) const {
        xcb_connection_t* const x = connection_.get();
        const auto partial = reply(query.partial);
        const auto plain = reply(query.plain);
        const auto type = reply(query.type);
        const Owned<xcb_get_geometry_reply_t> geometry{
            xcb_get_geometry_reply(x, query.geometry, nullptr)};
        const Owned<xcb_translate_coordinates_reply_t> corner{
            xcb_translate_coordinates_reply(x, query.corner, nullptr)};
        const Owned<xcb_get_window_attributes_reply_t> attributes{
            xcb_get_window_attributes_reply(x, query.attributes, nullptr)};
        const bool isMapped = attributes && attributes->map_state != XCB_MAP_STATE_UNMAPPED;
        Answer answer;
        answer.isWatched = std::ranges::find(items(type), dock_) != items(type).end();
        const auto strut = Struts::read(items(partial), items(plain));
        answer.isWatched = answer.isWatched || strut.has_value();
        if (strut && isMapped && geometry && corner) {
            answer.strut = StrutWindow{
                {corner->dst_x, corner->dst_y, geometry->width, geometry->height}, *strut};
        }
        return answer;
    }

private:
    using PropertyReply = Owned<xcb_get_property_reply_t>;

    [[nodiscard]] xcb_get_property_cookie_t property(xcb_window_t window, xcb_atom_t name,
                                                     xcb_atom_t type) const {
        constexpr std::uint32_t items = 12;
        return xcb_get_property(connection_.get(), 0, window, name, type, 0, items);
    }

    [[nodiscard]] PropertyReply reply(xcb_get_property_cookie_t cookie) const {
        return PropertyReply{xcb_get_property_reply(connection_.get(), cookie, nullptr)};
    }

    static std::span<const std::uint32_t> items(const PropertyReply& reply) {
        if (!reply || reply->format != 32)
            return {};
        const auto bytes = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
        return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())),
                bytes / sizeof(std::uint32_t)};
    }

    const X11Connection& connection_;
    xcb_atom_t partial_;
    xcb_atom_t plain_;
    xcb_atom_t type_;
    xcb_atom_t dock_;
};

}

StrutWindows::StrutWindows(X11Connection& connection)
    : connection_(connection)
    , events_(connection.observe([this](const xcb_generic_event_t& event) { handle(event); })) {
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
}

std::vector<StrutWindow> StrutWindows::read() {
    const Batch batch{connection_};
    std::vector<Query> queries;
    for (const xcb_window_t window : candidates()) {
        if (!isOwn(window))
            queries.push_back(batch.ask(window));
    }
    std::vector<StrutWindow> found;
    std::unordered_set<xcb_window_t> watched;
    for (const Query& query : queries) {
        const Answer answer = batch.answer(query);
        if (answer.strut)
            found.push_back(*answer.strut);
        if (!answer.isWatched)
            continue;
        watched.insert(query.window);
        if (!watched_.contains(query.window)) {
            connection_.selectInput(query.window, XCB_EVENT_MASK_PROPERTY_CHANGE |
                                                      XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        }
    }
    watched_ = std::move(watched);
    connection_.flush();
    return found;
}

/// The list of a window manager that is gone may linger; windows that no longer exist do no harm.
std::vector<xcb_window_t> StrutWindows::candidates() {
    auto windows = connection_.windows(connection_.root(), "_NET_CLIENT_LIST");
    watchTree(windows.empty());
    if (windows.empty()) {
        const Owned<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(
            connection_.get(), xcb_query_tree(connection_.get(), connection_.root()), nullptr)};
        if (tree) {
            const auto count = static_cast<std::size_t>(xcb_query_tree_children_length(tree.get()));
            const std::span children{xcb_query_tree_children(tree.get()), count};
            windows.assign(children.begin(), children.end());
        }
    }
    windows.resize(std::min(windows.size(), maximumWindows));
    return windows;
}

bool StrutWindows::isOwn(xcb_window_t window) const {
    const xcb_setup_t& setup = *xcb_get_setup(connection_.get());
    return (window & ~setup.resource_id_mask) == setup.resource_id_base;
}

/// Every move of every window is told to who watches the tree, so only while nobody lists windows.
void StrutWindows::watchTree(bool watch) {
    if (watch == watchesTree_)
        return;
    watchesTree_ = watch;
    if (watch) {
        connection_.selectInput(connection_.root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    } else {
        connection_.deselectInput(connection_.root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
}

void StrutWindows::handle(const xcb_generic_event_t& event) {
    if (onChange && concerns(event))
        onChange();
}

/// A window appeared or went, as `reporter` tells.
bool StrutWindows::comesOrGoes(xcb_window_t reporter, xcb_window_t window) const {
    if (reporter == connection_.root())
        return watchesTree_ && !isOwn(window);
    return watched_.contains(window);
}

bool StrutWindows::concerns(const xcb_generic_event_t& event) const {
    constexpr std::uint8_t sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.window == connection_.root())
            return change.atom == connection_.atom("_NET_CLIENT_LIST");
        return watched_.contains(change.window) &&
               (change.atom == connection_.atom("_NET_WM_STRUT_PARTIAL") ||
                change.atom == connection_.atom("_NET_WM_STRUT"));
    }
    case XCB_CONFIGURE_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        return watched_.contains(change.window);
    }
    case XCB_MAP_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        return comesOrGoes(change.event, change.window);
    }
    case XCB_UNMAP_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
        return comesOrGoes(change.event, change.window);
    }
    default:
        return false;
    }
}

}
