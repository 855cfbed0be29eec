#include "Panels/Keeping/DockStacking.hpp"

#include <algorithm>

namespace vireline::x11::DockStacking {

std::optional<Restacking> restacking(std::span<const StackedWindow> stack, xcb_window_t dock) {
    const auto own = std::ranges::find(stack, dock, &StackedWindow::id);
    if (own == stack.end())
        return std::nullopt;
    bool isAbove = false;
    std::optional<xcb_window_t> fullScreenBelow;
    bool isBelowFullScreen = false;
    std::optional<xcb_window_t> cover;
    for (const StackedWindow& window : stack) {
        if (window.id == dock) {
            isAbove = true;
            continue;
        }
        if (window.frame.overlap(own->frame) == 0)
            continue;
        if (isAbove) {
            cover = window.id;
            isBelowFullScreen = isBelowFullScreen || window.isFullScreen;
        } else if (window.isFullScreen) {
            fullScreenBelow = window.id;
        }
    }
    if (isBelowFullScreen)
        return std::nullopt;
    if (fullScreenBelow)
        return Restacking{*fullScreenBelow, false};
    return cover ? std::optional{Restacking{*cover, true}} : std::nullopt;
}

}
