#include "Displays/StrutWindows.hpp"

#include "X11/PropertyBatch.hpp"
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

/// What one window says of itself.
struct Answer {
    std::optional<StrutWindow> strut;
    /// It reserves room, or may begin to.
    bool isWatched = false;
};

/// Questions about windows, all asked before the first answer is waited for.
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

    /// Calls `receive` with each window and its answer, in the order asked.
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
        const auto strut = Struts::read(properties_.words(question.partial, XCB_ATOM_CARDINAL),
                                        properties_.words(question.plain, XCB_ATOM_CARDINAL));
        const auto types = properties_.words(question.type, XCB_ATOM_ATOM);
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
        if (!isOwn(window))
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
