#include "Displays/ScreenLayout.hpp"

#include <algorithm>
#include <tuple>

namespace vireline::wayland::ScreenLayout {
namespace {

Rect toGlobal(const QRect& layout, const QRect& primary) {
    return {static_cast<double>(layout.x() - primary.x()),
            static_cast<double>(primary.y() + primary.height() - layout.y() - layout.height()),
            static_cast<double>(layout.width()), static_cast<double>(layout.height())};
}

QRect without(const QRect& whole, const Insets& reserved) {
    return whole.adjusted(reserved.left, reserved.top, -reserved.right, -reserved.bottom);
}

}

// FNV-1a. Connectors' names are too few for two of them to collide in practice.
std::uint32_t displayID(const std::string& name) {
    constexpr std::uint32_t start = 2166136261U;
    constexpr std::uint32_t prime = 16777619U;
    std::uint32_t hash = start;
    for (const char letter : name)
        hash = (hash ^ static_cast<unsigned char>(letter)) * prime;
    return hash;
}

Insets withoutGaps(QSize whole, QSize free, const Insets& seen) {
    Insets result;
    const auto share = [](int reserved, int near, int far, int& nearResult, int& farResult) {
        // The two answers may be of different moments while a display changes.
        if (reserved <= 0 || near < 0 || far < 0)
            return;
        const int gap = (near + far - reserved) / 2;
        nearResult = std::max(0, near - gap);
        farResult = std::max(0, far - gap);
    };
    share(whole.width() - free.width(), seen.left, seen.right, result.left, result.right);
    share(whole.height() - free.height(), seen.top, seen.bottom, result.top, result.bottom);
    return result;
}

std::vector<OutputState> inOrder(std::vector<OutputState> outputs) {
    std::ranges::sort(outputs, {}, [](const OutputState& output) {
        const QPoint corner = output.geometry.topLeft();
        return std::tuple{corner.manhattanLength(), corner.x(), output.name};
    });
    return outputs;
}

std::vector<PlatformScreen> screens(const std::vector<OutputState>& outputs) {
    std::vector<PlatformScreen> result;
    for (const OutputState& output : outputs) {
        const QRect& primary = outputs.front().geometry;
        result.push_back(
            {.number = displayID(output.name),
             .unitNumber = static_cast<std::uint32_t>(result.size()),
             .frame = toGlobal(output.geometry, primary),
             .visibleFrame = toGlobal(without(output.geometry, output.reserved), primary),
             .backingScaleFactor = output.scale});
    }
    return result;
}

QRectF toLayout(const Rect& global, const QRect& primary) {
    return {primary.x() + global.x, primary.y() + primary.height() - global.y - global.height,
            global.width, global.height};
}

}
