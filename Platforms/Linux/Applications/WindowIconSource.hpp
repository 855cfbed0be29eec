/// The pictures that windows bring along themselves, for apps that no desktop entry gives an icon.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vireline::x11 {

/// One picture of `_NET_WM_ICON`.
struct WindowIcon {
    /// Pixels; neither is ever 0.
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    /// width × height pixels, rows from the top, each 0xAARRGGBB, colours not multiplied by alpha.
    std::vector<std::uint32_t> pixels;

    bool operator==(const WindowIcon&) const = default;
};

class WindowIconSource {
public:
    virtual ~WindowIconSource() = default;

    /// All pictures of the app's first window that has any, the smallest first. Empty when the app
    /// does not run or its windows have none that is valid.
    [[nodiscard]] virtual std::vector<WindowIcon>
    windowIcons(const std::string& bundleID) const = 0;
};

}
