#include "Layout/FullScreenDetector.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::FullScreenDetector {
namespace {

/// In points. Programs differ in how they round the size of a full-screen window.
constexpr double positionTolerance = 2;
constexpr double sizeTolerance = 4;

bool covers(const WindowInfo& window, const Rect& screen) {
    return window.layer == 0 &&
           std::abs(window.frame.minX() - screen.minX()) <= positionTolerance &&
           std::abs(window.frame.minY() - screen.minY()) <= positionTolerance &&
           std::abs(window.frame.width - screen.width) <= sizeTolerance &&
           std::abs(window.frame.height - screen.height) <= sizeTolerance;
}

}

std::set<std::uint32_t> displaysWithFullScreenWindow(std::span<const WindowInfo> windows,
                                                     std::span<const ScreenSnapshot> screens) {
    std::set<std::uint32_t> covered;
    for (const ScreenSnapshot& screen : screens) {
        const auto coversScreen = [&](const auto& window) { return covers(window, screen.frame); };
        if (std::ranges::any_of(windows, coversScreen))
            covered.insert(screen.id);
    }
    return covered;
}

}
