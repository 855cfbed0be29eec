/// Docks among other windows, under different kinds of window managers.
#include "DesktopTest.hpp"

#include <string>

namespace vireline::desktop {
namespace {

using Manager = VirtualDesktop::Manager;

class DockUnderManager : public DesktopTest, public testing::WithParamInterface<Manager> {
protected:
    void SetUp() override {
        runWithTwoDisplays(apps, {.manager = GetParam()});
        ASSERT_TRUE(docksSettle(tiles(2)));
    }

    /// Opens a large window on the display "right" that extends below the dock.
    xcb_window_t openBehind() {
        const auto& frame = desktop().monitor("right").frame;
        desktop().launch(red, {"--at",
                               std::to_string(frame.x + 100) + "," + std::to_string(frame.y + 50),
                               "--size", "1700x1000", "--colour", "f01010", "--skip-taskbar",
                               "--record", record().string()});
        EXPECT_TRUE(eventually([&] { return !desktop().visibleWindowsOf(red).empty(); }));
        const auto windows = desktop().windowsOf(red);
        return windows.empty() ? XCB_NONE : windows.front();
    }

    /// Makes it the active window as well, as it usually is.
    void setFullScreen(xcb_window_t window, bool isFullScreen) {
        constexpr std::uint32_t application = 1;
        constexpr std::uint32_t pager = 2;
        desktop().client().sendToRoot(window, "_NET_ACTIVE_WINDOW", {pager, 0, 0});
        desktop().client().sendToRoot(window, "_NET_WM_STATE",
                                      {isFullScreen ? 1U : 0U,
                                       desktop().client().atom("_NET_WM_STATE_FULLSCREEN"), 0,
                                       application});
    }

    [[nodiscard]] std::filesystem::path record() { return desktop().home().scratch() / "behind"; }
    [[nodiscard]] PixelPoint icon() { return layout("right", tiles(2)).icon(0); }

    const std::vector<App> apps = someApps(2);
    const App red{"org.example.Red", "Red", {}, {}};
    const Colour redColour{0xf0, 0x10, 0x10};
};

TEST_P(DockUnderManager, IsAboveOrdinaryWindowsAndBelowFullScreenOnes) {
    const xcb_window_t window = openBehind();
    EXPECT_TRUE(turns(icon(), apps[0].colour));
    setFullScreen(window, true);
    EXPECT_TRUE(turns(icon(), redColour));
    setFullScreen(window, false);
    EXPECT_TRUE(turns(icon(), apps[0].colour));
}

TEST_P(DockUnderManager, LetsClicksAboveTheStripThrough) {
    openBehind();
    const auto frame = plannedDock("right", tiles(2)).frame;
    const PixelPoint place{frame.x + 4, frame.y + 4};
    desktop().pointer().click(place);
    const auto press = "press " + std::to_string(place.x) + ' ' + std::to_string(place.y);
    EXPECT_TRUE(eventually([&] { return readFile(record()).contains(press); }))
        << readFile(record());
}

INSTANTIATE_TEST_SUITE_P(Of, DockUnderManager, testing::Values(Manager::openbox, Manager::xfwm4),
                         [](const auto& manager) {
                             return manager.param == Manager::openbox ? "Openbox" : "Xfwm4";
                         });

}
}
