/// What the tests of the window features share: three displays under each of two window managers,
/// apps whose windows they place, and what a person would call a window's frame.
#pragma once

#include "ClientWindows/WindowPlacement.hpp"
#include "DesktopTest.hpp"

#include <string>
#include <vector>

namespace vireline::desktop {

class WindowFeatureTest : public DesktopTest {
protected:
    [[nodiscard]] virtual VirtualDesktop::Manager manager() const = 0;

    /// Runs the program with three displays, the primary of which has no dock, the apps pinned and
    /// these members in its preferences. With `host`, that display has no dock instead, but another
    /// program's panel.
    VirtualDesktop& runWith(const std::string& members, const std::string& host = {},
                            Options options = {});

    /// The tile of the app at `index` on that display.
    [[nodiscard]] PixelPoint tile(const std::string& monitor, int index = 0);
    /// Returns once the program has acted on the click.
    void clickTile(const std::string& monitor, int index = 0);

    /// Two clicks, the second as soon as the program has acted on the first. Clicks that follow
    /// each other faster than anybody's hand are not all passed on by window managers.
    void doubleClickTile(const std::string& monitor, int index = 0);

    /// Starts the app at `index` as from a terminal, with a window whose corner is there, and waits
    /// until it is active and the docks know of it.
    xcb_window_t open(int index, PixelPoint corner, std::vector<std::string> arguments = {});

    /// Clicks and double clicks that the program has acted on.
    [[nodiscard]] int clicksLogged();

    /// A dock that hides comes out.
    void reveal(const std::string& monitor);

    /// The one window of the app at `index`; waits for it.
    [[nodiscard]] xcb_window_t windowOf(int index = 0);

    /// With the window manager's decoration, without a shadow that the window draws itself.
    [[nodiscard]] PixelRect outerFrame(xcb_window_t window);

    /// In the middle of the monitor, on whole pixels.
    [[nodiscard]] testing::AssertionResult comesToMiddle(xcb_window_t window,
                                                         const std::string& monitor);
    [[nodiscard]] testing::AssertionResult comesTo(xcb_window_t window, const PixelRect& outer);

    /// The window's middle comes to be on the monitor.
    [[nodiscard]] testing::AssertionResult comesOnto(xcb_window_t window,
                                                     const std::string& monitor);

    /// The part of the monitor, in pixels, that a window fills under these settings.
    [[nodiscard]] PixelRect freeArea(const std::string& monitor, const FillContext& context);

    [[nodiscard]] bool hasState(xcb_window_t window, const std::string& state);
    /// Asks the window manager to put the window into these states.
    void setStates(xcb_window_t window, const std::string& first, const std::string& second = {});

    const std::vector<App> apps = someApps(2);
    Request request = tiles(2);
    /// Whether the docks hide, and have to be touched before a tile can be clicked.
    bool autoHide = false;
};

/// A suite that runs under each window manager.
class UnderEachManager : public WindowFeatureTest,
                         public testing::WithParamInterface<VirtualDesktop::Manager> {
protected:
    [[nodiscard]] VirtualDesktop::Manager manager() const override { return GetParam(); }
};

[[nodiscard]] inline auto eachManager() {
    return testing::Values(VirtualDesktop::Manager::openbox, VirtualDesktop::Manager::xfwm4);
}

[[nodiscard]] std::string nameOf(VirtualDesktop::Manager manager);

/// How the tests' framework names a window manager.
inline void PrintTo(VirtualDesktop::Manager manager, std::ostream* out) {
    *out << nameOf(manager);
}

/// The test's name behind the suite's.
[[nodiscard]] std::string
managerName(const testing::TestParamInfo<VirtualDesktop::Manager>& manager);

}
