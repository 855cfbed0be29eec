/// What other programs' panels leave of a monitor. Their struts are measured from the root window's
/// edges, which on an inner edge says little; the panel's own rectangle then tells more.
#pragma once

#include "X11/PixelRect.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline::x11 {

/// Pixels reserved at the root window's edges, as _NET_WM_STRUT has them. Any program can set any
/// value.
struct Strut {
    std::uint32_t left = 0;
    std::uint32_t right = 0;
    std::uint32_t top = 0;
    std::uint32_t bottom = 0;

    [[nodiscard]] bool isEmpty() const noexcept {
        return left == 0 && right == 0 && top == 0 && bottom == 0;
    }

    bool operator==(const Strut&) const = default;
};

struct StrutWindow {
    PixelRect frame;
    Strut strut;

    bool operator==(const StrutWindow&) const = default;
};

namespace Struts {

/// From the items of _NET_WM_STRUT_PARTIAL, else of _NET_WM_STRUT; nothing when neither reserves
/// anything. What the first four items of both mean is the same.
[[nodiscard]] std::optional<Strut> read(std::span<const std::uint32_t> partial,
                                        std::span<const std::uint32_t> plain);

/// The visible part of each monitor, in their order. A strut counts on the one monitor that holds
/// most of its window, none for a window outside all; one that would leave nothing is ignored.
[[nodiscard]] std::vector<PixelRect> visibleFrames(std::span<const PixelRect> monitors,
                                                   const PixelRect& root,
                                                   std::span<const StrutWindow> windows);

}
}
