#include "Applications/WindowIcons.hpp"

#include <algorithm>

namespace vireline::x11::WindowIcons {

std::vector<xdg::WindowIcon> parse(std::span<const std::uint32_t> items) {
    std::vector<xdg::WindowIcon> icons;
    while (items.size() > 2 && icons.size() < maximumCount) {
        const std::uint32_t width = items[0];
        const std::uint32_t height = items[1];
        items = items.subspan(2);
        if (width == 0 || height == 0 || width > maximumEdge || height > maximumEdge)
            break;
        const auto count = static_cast<std::size_t>(width) * height;
        if (count > items.size())
            break;
        const auto pixels = items.first(count);
        icons.push_back({width, height, {pixels.begin(), pixels.end()}});
        items = items.subspan(count);
    }
    std::ranges::sort(icons, {}, [](const xdg::WindowIcon& icon) { return icon.pixels.size(); });
    return icons;
}

}
