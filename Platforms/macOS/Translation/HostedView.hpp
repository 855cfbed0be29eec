/// A view inside the window that hosts it: the window's coordinates have their origin at its
/// bottom-left corner, y upwards, the view's at the view's top-left corner, y downwards.
#pragma once

#include "Foundation/Geometry.hpp"

namespace vireline::macos {

struct HostedView {
    /// In the window's coordinates.
    Rect frame;

    [[nodiscard]] constexpr Point toView(Point window) const noexcept {
        return {window.x - frame.minX(), frame.maxY() - window.y};
    }

    bool operator==(const HostedView&) const = default;
};

}
