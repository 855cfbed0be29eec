#include "VirtualDesktop/Docks/DockWindows.hpp"

#include "VirtualDesktop/Compositors/CompositorSession.hpp"

#include <xcb/shape.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace vireline::desktop {
namespace {

constexpr std::string_view titlePrefix = "Vireline dock #";

std::optional<std::uint32_t> displayIDOf(std::string_view title) {
    if (!title.starts_with(titlePrefix))
        return std::nullopt;
    title.remove_prefix(titlePrefix.size());
    std::uint32_t id = 0;
    const auto [end, error] = std::from_chars(title.data(), title.data() + title.size(), id);
    if (error != std::errc{} || end != title.data() + title.size())
        return std::nullopt;
    return id;
}

std::vector<PixelRect> shapeRectangles(const XClient& client, xcb_window_t window,
                                       xcb_shape_sk_t kind) {
    const Owned<xcb_shape_get_rectangles_reply_t> reply{xcb_shape_get_rectangles_reply(
        client.get(), xcb_shape_get_rectangles(client.get(), window, kind), nullptr)};
    if (!reply)
        return {};
    std::vector<PixelRect> rectangles;
    auto next = xcb_shape_get_rectangles_rectangles_iterator(reply.get());
    for (; next.rem > 0; xcb_rectangle_next(&next))
        rectangles.push_back({next.data->x, next.data->y, next.data->width, next.data->height});
    return rectangles;
}

}

std::vector<DockWindow> DockWindows::shown() const {
    if (session_ != nullptr)
        return session_->shown();
    std::vector<DockWindow> docks;
    for (const xcb_window_t window : client_.allWindows()) {
        const auto id = displayIDOf(client_.text(window, "_NET_WM_NAME"));
        // A window manager may copy the title to the frame that it puts around a window.
        if (!id || !client_.hasProperty(window, "WM_CLASS") || !client_.isViewable(window))
            continue;
        if (const auto frame = client_.frame(window))
            docks.push_back({*id, *frame, window});
    }
    std::ranges::sort(docks, {}, &DockWindow::displayID);
    return docks;
}

DockWindow DockWindows::on(std::uint32_t displayID) const {
    const auto docks = shown();
    const auto found = std::ranges::find(docks, displayID, &DockWindow::displayID);
    return found == docks.end() ? DockWindow{displayID, {}, XCB_NONE} : *found;
}

std::vector<PixelRect> DockWindows::inputRegion(xcb_window_t window) const {
    return shapeRectangles(client_, window, XCB_SHAPE_SK_INPUT);
}

std::vector<PixelRect> DockWindows::outline(xcb_window_t window) const {
    return shapeRectangles(client_, window, XCB_SHAPE_SK_BOUNDING);
}

bool DockWindows::isAbove(xcb_window_t upper, xcb_window_t lower) const {
    const auto topLevels = client_.children(client_.root());
    const auto place = [&](xcb_window_t window) {
        // The window itself, or its frame.
        for (auto top = topLevels.begin(); top != topLevels.end(); ++top) {
            const auto inside = client_.children(*top);
            if (*top == window || std::ranges::find(inside, window) != inside.end())
                return top - topLevels.begin();
        }
        return std::ptrdiff_t{-1};
    };
    return place(upper) > place(lower);
}

std::vector<PixelRect> DockWindows::menus() const {
    if (session_ != nullptr)
        return session_->menus();
    constexpr std::string_view programsClass{"vireline\0Vireline\0", 18};
    std::vector<PixelRect> menus;
    for (const xcb_window_t window : client_.children(client_.root())) {
        if (client_.overridesRedirect(window) && client_.isViewable(window) &&
            client_.text(window, "WM_CLASS") == programsClass &&
            !displayIDOf(client_.text(window, "_NET_WM_NAME"))) {
            if (const auto frame = client_.frame(window))
                menus.push_back(*frame);
        }
    }
    return menus;
}

}
