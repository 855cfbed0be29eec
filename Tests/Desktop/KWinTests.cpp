/// The program in a session of KWin on Wayland.
#include "DesktopTest.hpp"

#include <algorithm>
#include <filesystem>
#include <string>

namespace vireline::desktop {
namespace {

constexpr const char* refusal = "KWin lists windows only for programs";

class KWin : public DesktopTest {
protected:
    void SetUp() override {
        if (!std::filesystem::exists("/usr/bin/kwin_wayland"))
            GTEST_SKIP() << "KWin is not installed";
    }

    /// Runs the program with Alpha pinned; its dock is on the display "right".
    void start(const std::string& preferences = {}, bool isPermitted = true) {
        auto& desktop =
            make({.monitors = {{"left", {0, 0, 800, 500}}, {"right", {800, 0, 800, 500}}},
                  .manager = VirtualDesktop::Manager::kwinWayland,
                  .isPermitted = isPermitted});
        desktop.home().install(alpha);
        desktop.home().pin(std::vector{alpha});
        desktop.home().writePreferences(R"({"onboardingCompleted": true)" + preferences + "}");
        desktop.runVireline();
        EXPECT_TRUE(docksSettle(tiles(1)));
    }
    [[nodiscard]] PixelPoint tile() { return layout("right", tiles(1)).icon(0); }
    [[nodiscard]] PixelPoint dot() { return layout("right", tiles(1)).dot(0); }

    /// What is shown on a display besides the empty desktop.
    [[nodiscard]] PixelRect shownOn(const std::string& monitor) {
        const auto docks = desktop().docks().shown();
        const auto found =
            std::ranges::find(docks, desktop().displayIDOf(monitor), &DockWindow::displayID);
        return found == docks.end() ? PixelRect{} : found->frame;
    }
    /// Starts Alpha, whose window opens on the display with the pointer.
    void launchOnLeft() {
        desktop().pointer().moveTo({400, 200});
        desktop().launch(alpha);
        EXPECT_TRUE(dotShows(dot(), true));
        EXPECT_TRUE(eventually([&] { return shownOn("left") != PixelRect{}; }));
    }

    const App alpha = someApps(1).front();
};

/// A click on a dock must not take the focus from the app.
TEST_F(KWin, HidesAndShowsTheAppWhoseTileIsClicked) {
    start();
    launchOnLeft();

    desktop().pointer().click(tile());
    EXPECT_TRUE(logs("click hide " + alpha.id));
    EXPECT_TRUE(eventually([&] { return shownOn("left") == PixelRect{}; }));

    desktop().pointer().click(tile());
    EXPECT_TRUE(eventually([&] { return shownOn("left") != PixelRect{}; }));
    EXPECT_EQ(desktop().log().count(refusal), 0);
}

TEST_F(KWin, BringsTheAppsWindowToTheDisplayOfTheClickedDock) {
    start(R"(, "summonOnClick": true)");
    const PixelRect dock = shownOn("right");
    launchOnLeft();

    desktop().pointer().click(tile());

    EXPECT_TRUE(eventually(
        [&] { return shownOn("left") == PixelRect{} && shownOn("right").y < dock.y - 60; }));
}

TEST_F(KWin, LosesOnlyTheRunningAppsIfTheListOfWindowsIsRefused) {
    start({}, /*isPermitted=*/false);
    EXPECT_TRUE(logs(refusal));

    desktop().pointer().moveTo({400, 200});
    desktop().pointer().click(tile());

    EXPECT_TRUE(eventually(
        [&] { return shownOn("left") != PixelRect{} || shownOn("right").height > 120; }));
    EXPECT_EQ(desktop().log().count(refusal), 1);
}

}
}
