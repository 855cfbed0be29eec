/// Shared by the tests of the window features: three displays under each of two window managers,
/// apps with chosen window positions, and a window's frame as the user sees it.
#pragma once

#include "ClientWindows/WindowPlacement.hpp"
#include "DesktopTest.hpp"

#include <string>
#include <vector>

namespace vireline::desktop {

class WindowFeatureTest : public DesktopTest {
protected:
    [[nodiscard]] virtual VirtualDesktop::Manager manager() const = 0;

    /// Runs the program with three displays, the pinned apps and these preferences. The primary
    /// display has no dock; with `host`, that display has none instead, but another program's
    /// panel.
    VirtualDesktop& runWith(const std::string& members, const std::string& host = {},
                            Options options = {});

    /// The tile of the app at `index` on that display.
    [[nodiscard]] PixelPoint tile(const std::string& monitor, int index = 0);
    /// Waits until the program has handled the click.
    void clickTile(const std::string& monitor, int index = 0);

    /// Two clicks, the second as soon as the program has handled the first. Window managers drop
    /// some of several clicks that are faster than any user's.
    void doubleClickTile(const std::string& monitor, int index = 0);

    /// Starts the app at `index` as from a terminal, with its window's corner at this position, and
    /// waits until it is active and the docks have noticed it.
    xcb_window_t open(int index, PixelPoint corner, std::vector<std::string> arguments = {});

    /// The number of clicks and double clicks that the program has handled.
    [[nodiscard]] int clicksLogged();

    /// Expands an auto-hiding dock.
    void reveal(const std::string& monitor);

    /// The only window of the app at `index`; waits for it.
    [[nodiscard]] xcb_window_t windowOf(int index = 0);

    /// Includes the window manager's decoration, but not a shadow that the window draws itself.
    [[nodiscard]] PixelRect outerFrame(xcb_window_t window);

    /// Waits until the window is centred on the monitor, in whole pixels.
    [[nodiscard]] testing::AssertionResult comesToMiddle(xcb_window_t window,
                                                         const std::string& monitor);
    [[nodiscard]] testing::AssertionResult comesTo(xcb_window_t window, const PixelRect& outer);

    /// Waits until the window's centre is on the monitor.
    [[nodiscard]] testing::AssertionResult comesOnto(xcb_window_t window,
                                                     const std::string& monitor);

    /// The area of the monitor, in pixels, that a window fills with these settings.
    [[nodiscard]] PixelRect freeArea(const std::string& monitor, const FillContext& context);

    [[nodiscard]] bool hasState(xcb_window_t window, const std::string& state);
    /// Asks the window manager to add these states to the window.
    void setStates(xcb_window_t window, const std::string& first, const std::string& second = {});

    const std::vector<App> apps = someApps(2);
    Request request = tiles(2);
    /// Whether the docks are auto-hiding, so that they must be expanded before a tile is clicked.
    bool autoHide = false;
};

/// A test suite that runs under each window manager.
class UnderEachManager : public WindowFeatureTest,
                         public testing::WithParamInterface<VirtualDesktop::Manager> {
protected:
    [[nodiscard]] VirtualDesktop::Manager manager() const override { return GetParam(); }
};

[[nodiscard]] inline auto eachManager() {
    // Only the stories that are listed for it run under sway.
    return testing::Values(VirtualDesktop::Manager::openbox, VirtualDesktop::Manager::xfwm4,
                           VirtualDesktop::Manager::sway);
}

[[nodiscard]] std::string nameOf(VirtualDesktop::Manager manager);

/// Prints a window manager in test names.
inline void PrintTo(VirtualDesktop::Manager manager, std::ostream* out) {
    *out << nameOf(manager);
}

/// The suffix of the test's name.
[[nodiscard]] std::string
managerName(const testing::TestParamInfo<VirtualDesktop::Manager>& manager);

}
