#include "Displays/StrutWindows.hpp"

#include "Connection/PropertyBatch.hpp"
#include "Connection/X11Connection.hpp"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

namespace vireline::x11 {
namespace {

/// A sanity limit, far above what any desktop has: a client list can have any length.
constexpr std::size_t maximumStrutWindows = 4096;

/// What was read about one window.
struct Answer {
    std::optional<StrutWindow> strut;
    /// Whether it reserves space, or is a dock that may start to.
    bool isWatched = false;
};

/// A batch of requests about windows, all sent before the first reply is awaited.
class Questions {
public:
    explicit Questions(const X11Connection& connection)
        : connection_(connection), properties_(connection) {}

    void ask(xcb_window_t window) {
        constexpr std::size_t strutBytes = 12 * sizeof(std::uint32_t);
        constexpr std::size_t typeBytes = 8 * sizeof(std::uint32_t);
        xcb_connection_t* const x = connection_.get();
        asked_.push_back({window, properties_.ask(window, "_NET_WM_STRUT_PARTIAL", strutBytes),
                          properties_.ask(window, "_NET_WM_STRUT", strutBytes),
                          properties_.ask(window, "_NET_WM_WINDOW_TYPE", typeBytes),
                          xcb_get_geometry(x, window),
                          xcb_translate_coordinates(x, window, connection_.root(), 0, 0),
                          xcb_get_window_attributes(x, window)});
    }

    /// Calls `receive` with each window and its answer, in the order of the requests.
    template <class Receive>
    void answers(Receive receive) {
        for (const Question& question : asked_) {
            receive(question.window, answer(question));
        }
    }

private:
    struct Question {
        xcb_window_t window;
        std::size_t partial;
        std::size_t plain;
        std::size_t type;
        xcb_get_geometry_cookie_t geometry;
        xcb_translate_coordinates_cookie_t corner;
        xcb_get_window_attributes_cookie_t attributes;
    };

    Answer answer(const Question& question) {
        xcb_connection_t* const x = connection_.get();
        const Owned<xcb_get_geometry_reply_t> geometry{
            xcb_get_geometry_reply(x, question.geometry, nullptr)};
        const Owned<xcb_translate_coordinates_reply_t> corner{
            xcb_translate_coordinates_reply(x, question.corner, nullptr)};
        const Owned<xcb_get_window_attributes_reply_t> attributes{
            xcb_get_window_attributes_reply(x, question.attributes, nullptr)};
        const auto strut = Struts::read(properties_.items(question.partial, XCB_ATOM_CARDINAL),
                                        properties_.items(question.plain, XCB_ATOM_CARDINAL));
        const auto types = properties_.items(question.type, XCB_ATOM_ATOM);
        Answer answer;
        answer.isWatched =
            strut || std::ranges::count(types, connection_.atom("_NET_WM_WINDOW_TYPE_DOCK")) > 0;
        const bool isMapped = attributes && attributes->map_state != XCB_MAP_STATE_UNMAPPED;
        if (strut && isMapped && geometry && corner) {
            answer.strut = StrutWindow{
                {corner->dst_x, corner->dst_y, geometry->width, geometry->height}, *strut};
        }
        return answer;
    }

    const X11Connection& connection_;
    PropertyBatch properties_;
    std::vector<Question> asked_;
};

}

StrutWindows::StrutWindows(X11Connection& connection)
    : connection_(connection)
    , events_(connection.observe([this](const xcb_generic_event_t& event) { handle(event); })) {
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
}

std::vector<StrutWindow> StrutWindows::read() {
    Questions questions{connection_};
    for (const xcb_window_t window : candidates()) {
        if (!connection_.isOwn(window))
            questions.ask(window);
    }
    std::vector<StrutWindow> found;
    std::unordered_set<xcb_window_t> watched;
    questions.answers([&](xcb_window_t window, const Answer& answer) {
        if (answer.strut)
            found.push_back(*answer.strut);
        if (!answer.isWatched)
            return;
        watched.insert(window);
        if (!watched_.contains(window)) {
            connection_.selectInput(window, XCB_EVENT_MASK_PROPERTY_CHANGE |
                                                XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        }
    });
    watched_ = std::move(watched);
    connection_.flush();
    return found;
}

/// The list of a window manager that is gone may be stale, but windows that no longer exist are
/// harmless.
std::vector<xcb_window_t> StrutWindows::candidates() {
    auto windows = connection_.windows(connection_.root(), "_NET_CLIENT_LIST");
    windows.resize(std::min(windows.size(), maximumStrutWindows));
    // Watching the tree reports every move of every window, so it is done only where necessary.
    if (listsDocks(windows)) {
        topLevels_.reset();
    } else {
        if (!topLevels_)
            topLevels_ = connection_.watchTopLevels();
        addUnlisted(windows);
    }
    return windows;
}

/// Our own windows are docks too, so wherever one is shown, this tells whether the window manager
/// lists docks.
bool StrutWindows::listsDocks(std::span<const xcb_window_t> windows) const {
    constexpr std::size_t typeBytes = 8 * sizeof(std::uint32_t);
    const xcb_atom_t dock = connection_.atom("_NET_WM_WINDOW_TYPE_DOCK");
    PropertyBatch types{connection_};
    for (const xcb_window_t window : windows)
        types.ask(window, "_NET_WM_WINDOW_TYPE", typeBytes);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (std::ranges::count(types.items(i, XCB_ATOM_ATOM), dock) > 0)
            return true;
    }
    return false;
}

/// A panel may be a child of the root window or of a frame.
void StrutWindows::addUnlisted(std::vector<xcb_window_t>& windows) const {
    xcb_connection_t* const x = connection_.get();
    std::unordered_set<xcb_window_t> known{windows.begin(), windows.end()};
    const auto childrenOf = [&](xcb_query_tree_cookie_t cookie) {
        std::vector<xcb_window_t> children;
        const Owned<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(x, cookie, nullptr)};
        if (tree) {
            const std::span all{
                xcb_query_tree_children(tree.get()),
                static_cast<std::size_t>(xcb_query_tree_children_length(tree.get()))};
            children.assign(all.begin(), all.end());
        }
        return children;
    };
    const auto add = [&](xcb_window_t window) {
        if (windows.size() < maximumStrutWindows && known.insert(window).second)
            windows.push_back(window);
    };
    const auto topLevels = childrenOf(xcb_query_tree(x, connection_.root()));
    std::vector<xcb_query_tree_cookie_t> asked;
    asked.reserve(topLevels.size());
    for (const xcb_window_t window : topLevels) {
        asked.push_back(xcb_query_tree(x, window));
        add(window);
    }
    for (const xcb_query_tree_cookie_t cookie : asked)
        std::ranges::for_each(childrenOf(cookie), add);
}

void StrutWindows::handle(const xcb_generic_event_t& event) {
    if (onChange && concerns(event))
        onChange();
}

/// Whether it matters that `reporter` reports this window as mapped or unmapped.
bool StrutWindows::isRelevantMapChange(xcb_window_t reporter, xcb_window_t window) const {
    if (reporter == connection_.root())
        return topLevels_ && !connection_.isOwn(window);
    return watched_.contains(window);
}

bool StrutWindows::concerns(const xcb_generic_event_t& event) const {
    switch (eventType(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = as<xcb_property_notify_event_t>(event);
        if (change.window == connection_.root())
            return change.atom == connection_.atom("_NET_CLIENT_LIST");
        return watched_.contains(change.window) &&
               (change.atom == connection_.atom("_NET_WM_STRUT_PARTIAL") ||
                change.atom == connection_.atom("_NET_WM_STRUT"));
    }
    case XCB_CONFIGURE_NOTIFY: {
        const auto& change = as<xcb_configure_notify_event_t>(event);
        return watched_.contains(change.window);
    }
    case XCB_MAP_NOTIFY: {
        const auto& change = as<xcb_map_notify_event_t>(event);
        return isRelevantMapChange(change.event, change.window);
    }
    case XCB_UNMAP_NOTIFY: {
        const auto& change = as<xcb_unmap_notify_event_t>(event);
        return isRelevantMapChange(change.event, change.window);
    }
    default:
        return false;
    }
}

}
