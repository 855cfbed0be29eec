/// Computes what other programs' panels leave free of a monitor. Struts are measured from the root
/// window's edges, which says little about an edge between two monitors; there the panel's own
/// rectangle is used.
#pragma once

#include "Connection/PixelRect.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline::x11 {

/// Pixels reserved at the root window's edges, as in _NET_WM_STRUT. Untrusted: any program can set
/// any value.
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

/// Parsed from the items of _NET_WM_STRUT_PARTIAL, otherwise of _NET_WM_STRUT, whose four items are
/// the first four of the other; nullopt if neither reserves anything.
[[nodiscard]] std::optional<Strut> read(std::span<const std::uint32_t> partial,
                                        std::span<const std::uint32_t> plain);

/// The visible part of each monitor, in the order of `monitors`. A strut applies to the monitor
/// that contains most of its window, or to none if the window is outside all of them. Struts that
/// would leave nothing are ignored.
[[nodiscard]] std::vector<PixelRect> visibleFrames(std::span<const PixelRect> monitors,
                                                   const PixelRect& root,
                                                   std::span<const StrutWindow> windows);

}
}
