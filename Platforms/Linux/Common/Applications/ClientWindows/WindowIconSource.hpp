/// The icons that windows themselves provide, for apps whose icon no desktop entry names.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vireline::xdg {

/// One image of `_NET_WM_ICON`.
struct WindowIcon {
    /// Pixels; neither is ever 0.
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    /// width × height pixels, rows from the top, each 0xAARRGGBB, not premultiplied.
    std::vector<std::uint32_t> pixels;

    bool operator==(const WindowIcon&) const = default;
};

class WindowIconSource {
public:
    virtual ~WindowIconSource() = default;

    /// All images of the app's first window that has any, smallest first. Empty if the app is not
    /// running or its windows have no valid image.
    [[nodiscard]] virtual std::vector<WindowIcon>
    windowIcons(const std::string& bundleID) const = 0;
};

}
