#include "Layout/DockLocationDetector.hpp"

#include <algorithm>

namespace vireline::DockLocationDetector {
namespace {

bool isInset(const ScreenSnapshot& screen) {
    return screen.visibleFrame.minY() > screen.frame.minY() ||
           screen.visibleFrame.minX() > screen.frame.minX() ||
           screen.frame.maxX() > screen.visibleFrame.maxX();
}

}

std::optional<std::uint32_t> dockHost(std::span<const ScreenSnapshot> screens) {
    if (screens.empty())
        return std::nullopt;
    const auto host = std::ranges::find_if(screens, isInset);
    return host == screens.end() ? screens.front().id : host->id;
}

}
