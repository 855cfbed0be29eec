#include "Displays/Struts.hpp"

#include <algorithm>
#include <cstddef>

namespace vireline::x11::Struts {
namespace {

/// One edge of a monitor, and how far in from it the window reserves space, measured in two ways.
struct Claim {
    std::uint32_t strut = 0;
    /// Distance from the root window's edge to the monitor's edge.
    std::int64_t gap = 0;
    /// Distance from the monitor's edge to the far side of the window.
    std::int64_t windowDepth = 0;
    /// The monitor's size perpendicular to that edge.
    std::int64_t room = 0;
};

/// How much to take off the edge. A strut that does not end inside the monitor is invalid or was
/// wrongly measured from the monitor's own edge; then the window's rectangle is used instead.
std::int64_t depth(const Claim& claim) {
    if (claim.strut == 0)
        return 0;
    const auto isSensible = [&](std::int64_t depth) { return depth > 0 && depth < claim.room; };
    const std::int64_t measured = std::int64_t{claim.strut} - claim.gap;
    if (isSensible(measured))
        return measured;
    return isSensible(claim.windowDepth) ? claim.windowDepth : 0;
}

struct Insets {
    std::int64_t left = 0;
    std::int64_t right = 0;
    std::int64_t top = 0;
    std::int64_t bottom = 0;
};

Insets claimed(const StrutWindow& window, const PixelRect& monitor, const PixelRect& root) {
    const PixelRect& frame = window.frame;
    const Strut& strut = window.strut;
    return {
        .left = depth({strut.left, monitor.x - root.x, frame.right() - monitor.x, monitor.width}),
        .right = depth({strut.right, root.right() - monitor.right(), monitor.right() - frame.x,
                        monitor.width}),
        .top = depth({strut.top, monitor.y - root.y, frame.bottom() - monitor.y, monitor.height}),
        .bottom = depth({strut.bottom, root.bottom() - monitor.bottom(), monitor.bottom() - frame.y,
                         monitor.height}),
    };
}

/// Keeps the deepest claim on each edge, unless nothing would remain between it and the opposite
/// edge.
void apply(std::int64_t claim, std::int64_t& edge, std::int64_t opposite, std::int64_t room) {
    if (claim > edge && claim + opposite < room)
        edge = claim;
}

PixelRect inset(const PixelRect& monitor, const Insets& insets) {
    return {monitor.x + static_cast<int>(insets.left), monitor.y + static_cast<int>(insets.top),
            monitor.width - static_cast<int>(insets.left + insets.right),
            monitor.height - static_cast<int>(insets.top + insets.bottom)};
}

std::optional<std::size_t> homeOf(const PixelRect& window, std::span<const PixelRect> monitors) {
    std::optional<std::size_t> home;
    std::int64_t most = 0;
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        const std::int64_t overlap = window.overlap(monitors[i]);
        if (overlap > most) {
            most = overlap;
            home = i;
        }
    }
    return home;
}

}

std::optional<Strut> read(std::span<const std::uint32_t> partial,
                          std::span<const std::uint32_t> plain) {
    constexpr std::size_t partialItems = 12;
    constexpr std::size_t plainItems = 4;
    const auto items = partial.size() >= partialItems ? partial : plain;
    if (items.size() < plainItems)
        return std::nullopt;
    const Strut strut{items[0], items[1], items[2], items[3]};
    return strut.isEmpty() ? std::nullopt : std::optional{strut};
}

std::vector<PixelRect> visibleFrames(std::span<const PixelRect> monitors, const PixelRect& root,
                                     std::span<const StrutWindow> windows) {
    std::vector<Insets> insets(monitors.size());
    for (const StrutWindow& window : windows) {
        const auto home = homeOf(window.frame, monitors);
        if (!home)
            continue;
        const PixelRect& monitor = monitors[*home];
        const Insets claim = claimed(window, monitor, root);
        Insets& edges = insets[*home];
        apply(claim.left, edges.left, edges.right, monitor.width);
        apply(claim.right, edges.right, edges.left, monitor.width);
        apply(claim.top, edges.top, edges.bottom, monitor.height);
        apply(claim.bottom, edges.bottom, edges.top, monitor.height);
    }
    std::vector<PixelRect> visible;
    visible.reserve(monitors.size());
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        visible.push_back(inset(monitors[i], insets[i]));
    }
    return visible;
}

}
