/// The docks on the screen, recognised by their titles.
#pragma once

#include "VirtualDesktop/Screen/DockWindow.hpp"
#include "VirtualDesktop/Screen/PixelGeometry.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace vireline::desktop {

class CompositorSession;

class DockWindows {
public:
    /// `session` is null on an X desktop.
    explicit DockWindows(const XClient& client, const CompositorSession* session = nullptr)
        : client_(client), session_(session) {}

    /// The visible docks, in ascending order of display IDs.
    [[nodiscard]] std::vector<DockWindow> shown() const;

    /// The dock on a display; its window is XCB_NONE if there is none.
    [[nodiscard]] DockWindow on(std::uint32_t displayID) const;

    /// The window's input region, in the window's coordinates.
    [[nodiscard]] std::vector<PixelRect> inputRegion(xcb_window_t window) const;
    /// The window's bounding shape.
    [[nodiscard]] std::vector<PixelRect> outline(xcb_window_t window) const;

    /// Whether `upper` covers `lower` where they overlap.
    [[nodiscard]] bool isAbove(xcb_window_t upper, xcb_window_t lower) const;

    /// The frames of the program's popup menus. On an X desktop, these are its visible
    /// override-redirect windows other than docks.
    [[nodiscard]] std::vector<PixelRect> menus() const;

private:
    const XClient& client_;
    const CompositorSession* session_;
};

}
