#include "Panels/Keeping/DockCover.hpp"

#include "Connection/PropertyBatch.hpp"
#include "Connection/X11Connection.hpp"
#include "Panels/Keeping/DockStacking.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vireline::x11::DockCover {
namespace {

using namespace std::string_view_literals;

/// Queries about the windows above a dock, all sent before the first reply is awaited.
class WindowsAbove {
public:
    WindowsAbove(const X11Connection& connection, const PixelRect& display)
        : connection_(connection), properties_(connection), display_(display) {}

    void ask(xcb_window_t window) {
        constexpr std::size_t atomsBytes = 32 * sizeof(std::uint32_t);
        xcb_connection_t* const x = connection_.get();
        asked_.push_back({window, properties_.ask(window, "_NET_WM_WINDOW_TYPE", atomsBytes),
                          properties_.ask(window, "_NET_WM_STATE", atomsBytes),
                          properties_.ask(window, "WM_TRANSIENT_FOR", sizeof(std::uint32_t)),
                          properties_.ask(window, "_NET_FRAME_EXTENTS", 4 * sizeof(std::uint32_t)),
                          xcb_get_geometry(x, window),
                          xcb_translate_coordinates(x, window, connection_.root(), 0, 0),
                          xcb_get_window_attributes(x, window)});
    }

    /// The ordinary and the full-screen windows among them, in the order of the requests.
    [[nodiscard]] std::vector<StackedWindow> answers() {
        std::vector<StackedWindow> windows;
        for (const Question& question : asked_) {
            if (const auto window = answer(question))
                windows.push_back(*window);
        }
        return windows;
    }

private:
    struct Question {
        xcb_window_t window;
        std::size_t type;
        std::size_t state;
        std::size_t transient;
        std::size_t extents;
        xcb_get_geometry_cookie_t geometry;
        xcb_translate_coordinates_cookie_t corner;
        xcb_get_window_attributes_cookie_t attributes;
    };

    std::optional<StackedWindow> answer(const Question& question) {
        xcb_connection_t* const x = connection_.get();
        const Owned<xcb_get_geometry_reply_t> geometry{
            xcb_get_geometry_reply(x, question.geometry, nullptr)};
        const Owned<xcb_translate_coordinates_reply_t> corner{
            xcb_translate_coordinates_reply(x, question.corner, nullptr)};
        const Owned<xcb_get_window_attributes_reply_t> attributes{
            xcb_get_window_attributes_reply(x, question.attributes, nullptr)};
        if (!geometry || !corner || !attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            return std::nullopt;
        const PixelRect frame{corner->dst_x, corner->dst_y, geometry->width, geometry->height};
        const bool isFullScreen =
            has(question.state, "_NET_WM_STATE_FULLSCREEN") || fillsDisplay(question, frame);
        if (!isFullScreen && !isOrdinary(question))
            return std::nullopt;
        return StackedWindow{question.window, frame, isFullScreen};
    }

    [[nodiscard]] bool has(std::size_t request, std::string_view atom) {
        return std::ranges::count(properties_.items(request, XCB_ATOM_ATOM),
                                  connection_.atom(atom)) > 0;
    }

    /// As programs do that make themselves full-screen by size.
    [[nodiscard]] bool fillsDisplay(const Question& question, const PixelRect& frame) {
        const auto sides = properties_.items(question.extents, XCB_ATOM_CARDINAL);
        return frame.overlap(display_) == display_.overlap(display_) &&
               std::ranges::all_of(sides, [](auto side) { return side == 0; }) &&
               !has(question.state, "_NET_WM_STATE_MAXIMIZED_VERT");
    }

    [[nodiscard]] bool isOrdinary(const Question& question) {
        constexpr std::array extraordinary{"_NET_WM_STATE_ABOVE"sv, "_NET_WM_STATE_MODAL"sv,
                                           "_NET_WM_STATE_HIDDEN"sv};
        const bool isNormal = properties_.items(question.type, XCB_ATOM_ATOM).empty() ||
                              has(question.type, "_NET_WM_WINDOW_TYPE_NORMAL");
        return isNormal && !properties_.firstItem(question.transient, XCB_ATOM_WINDOW) &&
               std::ranges::none_of(extraordinary, [&](std::string_view state) {
                   return has(question.state, state);
               });
    }

    const X11Connection& connection_;
    PropertyBatch properties_;
    PixelRect display_;
    std::vector<Question> asked_;
};

/// The top-level window that the user sees at this position.
xcb_window_t topLevelAt(const X11Connection& connection, PixelPoint place) {
    xcb_connection_t* const x = connection.get();
    const xcb_window_t root = connection.root();
    const Owned<xcb_translate_coordinates_reply_t> reply{xcb_translate_coordinates_reply(
        x,
        xcb_translate_coordinates(x, root, root, static_cast<std::int16_t>(place.x),
                                  static_cast<std::int16_t>(place.y)),
        nullptr)};
    return reply ? reply->child : XCB_NONE;
}

/// The frame that contains the window, or the window itself.
xcb_window_t topLevelOf(const X11Connection& connection, xcb_window_t window) {
    while (true) {
        const Owned<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(
            connection.get(), xcb_query_tree(connection.get(), window), nullptr)};
        if (!tree || tree->parent == connection.root() || tree->parent == XCB_NONE)
            return window;
        window = tree->parent;
    }
}

PixelPoint centerOfOverlap(const PixelRect& a, const PixelRect& b) {
    const PixelPoint start{std::max(a.x, b.x), std::max(a.y, b.y)};
    return {(start.x + std::min(a.right(), b.right())) / 2,
            (start.y + std::min(a.bottom(), b.bottom())) / 2};
}

}

/// Goes by the server's stacking order, since the window manager's list may be a simplification.
bool isCovered(const X11Connection& connection, xcb_window_t dock, const PixelRect& frame,
               const PixelRect& display) {
    const auto stacking = connection.windows(connection.root(), "_NET_CLIENT_LIST_STACKING");
    const auto own = std::ranges::find(stacking, dock);
    if (own == stacking.end())
        return false;
    WindowsAbove questions{connection, display};
    std::for_each(own + 1, stacking.end(), [&](xcb_window_t window) { questions.ask(window); });
    std::vector<StackedWindow> stack{{dock, frame, false}};
    std::ranges::copy(questions.answers(), std::back_inserter(stack));

    const auto restacking = DockStacking::restacking(stack, dock);
    if (!restacking)
        return false;
    const auto cover = std::ranges::find(stack, restacking->sibling, &StackedWindow::id);
    return topLevelAt(connection, centerOfOverlap(frame, cover->frame)) ==
           topLevelOf(connection, cover->id);
}

}
