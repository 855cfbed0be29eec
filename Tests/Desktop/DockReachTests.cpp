/// The positions of docks, icons and labels, as numbers calculated by hand, and where clicks next
/// to them go. Drawing may extend beyond a dock's planned frame.
#include "DesktopTest.hpp"

namespace vireline::desktop {
namespace {

/// A dock with two pinned apps on the display "right", from (1920, 0) to (3840, 1080).
class DockReach : public DesktopTest {
protected:
    void run(const std::string& members) {
        auto& desktop = make({.monitors = twoMonitors()});
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(apps);
        desktop.home().writePreferences(R"({"onboardingCompleted": true, )" + members + "}");
        desktop.runVireline();
    }

    [[nodiscard]] PixelRect shown() {
        return desktop().docks().on(desktop().displayIDOf("right")).frame;
    }
    [[nodiscard]] testing::AssertionResult isAt(const PixelRect& window) {
        if (eventually([&] { return shown() == window; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << shown() << " and not " << window;
    }

    /// The visible part of an app's icon, in screen coordinates.
    [[nodiscard]] PixelRect icon(std::size_t index) {
        const PixelRect display = desktop().monitor("right").frame;
        auto bounds = desktop().picture(display).bounds(apps[index].colour);
        bounds.x += display.x;
        bounds.y += display.y;
        return bounds;
    }
    [[nodiscard]] testing::AssertionResult iconIsAt(std::size_t index, const PixelRect& place) {
        if (eventually([&] { return icon(index) == place; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << icon(index) << " and not " << place;
    }

    /// Opens a window below the dock that covers the whole display "right".
    void putWindowBehind() {
        const auto& frame = desktop().monitor("right").frame;
        desktop().launch(behind,
                         {"--at", std::to_string(frame.x) + "," + std::to_string(frame.y), "--size",
                          std::to_string(frame.width) + "x" + std::to_string(frame.height),
                          "--colour", "f01010", "--skip-taskbar", "--record", record().string()});
        ASSERT_TRUE(eventually([&] { return !desktop().visibleWindowsOf(behind).empty(); }));
    }
    [[nodiscard]] std::filesystem::path record() { return desktop().home().scratch() / "behind"; }
    [[nodiscard]] bool isRecorded(PixelPoint place) {
        return readFile(record()).contains("press " + std::to_string(place.x) + ' ' +
                                           std::to_string(place.y) + '\n');
    }
    [[nodiscard]] testing::AssertionResult reachesTheWindowBehind(PixelPoint place) {
        desktop().pointer().click(place);
        if (eventually([&] { return isRecorded(place); }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << place << " is not in " << readFile(record());
    }

    const std::vector<App> apps = someApps(2);
    const App behind{"org.example.Behind", "Behind", {}, {}};
};

TEST_F(DockReach, IsAsPlannedWithUsualIconsAtTheBottom) {
    run(R"("position": "bottom")");
    // 215 long: four icons of 44, a separator, four gaps of 6 and 7 at each end.
    EXPECT_TRUE(isAt({2773, 992, 215, 84}));
    EXPECT_TRUE(iconIsAt(0, {2780, 1025, 44, 44}));
    EXPECT_TRUE(iconIsAt(1, {2830, 1025, 44, 44}));
}

TEST_F(DockReach, HoldsALargeIconsLabelAtTheBottom) {
    run(R"("position": "bottom", "iconSize": 64)");
    // The strip is 78 thick, and the label above it needs 26.
    EXPECT_TRUE(isAt({2733, 1076 - 78 - 26, 295, 78 + 26}));
    ASSERT_TRUE(iconIsAt(0, {2740, 1005, 64, 64}));
    putWindowBehind();
    const PixelPoint aboveTheStrip{2740, 990};
    EXPECT_TRUE(reachesTheWindowBehind({2740, 975}));
    EXPECT_TRUE(reachesTheWindowBehind(aboveTheStrip));
    const Colour red{0xf0, 0x10, 0x10};
    const PixelPoint label{2733 + 147, 998 - 13};
    ASSERT_TRUE(turns(label, red));
    desktop().pointer().moveTo({2772, 1037});
    EXPECT_TRUE(turnsFrom(label, red));
}

TEST_F(DockReach, HoldsLargeIconsOnTheLeft) {
    run(R"("position": "left", "iconSize": 64)");
    EXPECT_TRUE(isAt({1924, 393, 86, 295}));
    ASSERT_TRUE(iconIsAt(0, {1931, 400, 64, 64}));
    ASSERT_TRUE(iconIsAt(1, {1931, 470, 64, 64}));
    putWindowBehind();
    // The strip ends at 2002, although the planned window would end at 1982.
    EXPECT_TRUE(reachesTheWindowBehind({2005, 540}));
    desktop().pointer().click({1990, 430});
    EXPECT_TRUE(logs("click launch " + apps[0].id));
    EXPECT_FALSE(isRecorded({1990, 430}));
}

TEST_F(DockReach, HoldsLargeIconsOnTheRight) {
    run(R"("position": "right", "iconSize": 64)");
    EXPECT_TRUE(isAt({3836 - 86, 393, 86, 295}));
    ASSERT_TRUE(iconIsAt(0, {3765, 400, 64, 64}));
    putWindowBehind();
    EXPECT_TRUE(reachesTheWindowBehind({3754, 540}));
    desktop().pointer().click({3770, 500});
    EXPECT_TRUE(logs("click launch " + apps[1].id));
    EXPECT_FALSE(isRecorded({3770, 500}));
}

TEST_F(DockReach, ASliverStaysASliver) {
    run(R"("position": "left", "iconSize": 64, "autoHide": true)");
    EXPECT_TRUE(isAt({1920, 393, 4, 295}));
    desktop().pointer().moveTo({1921, 540});
    EXPECT_TRUE(isAt({1920, 393, 90, 295}));
    ASSERT_TRUE(iconIsAt(0, {1931, 400, 64, 64}));
    // The pointer keeps it expanded over the outer part of the strip, but not next to it.
    desktop().pointer().moveTo({1998, 540});
    const PixelRect sliver{1920, 393, 4, 295};
    EXPECT_FALSE(eventually([&] { return shown() == sliver; }, std::chrono::seconds{1}));
    desktop().pointer().moveTo({2006, 540});
    EXPECT_TRUE(isAt(sliver));
}

TEST_F(DockReach, ATilesMenuOpensAboveTheStrip) {
    run(R"("position": "bottom")");
    ASSERT_TRUE(iconIsAt(0, {2780, 1025, 44, 44}));
    const auto menu = openMenu({2785, 1060});
    ASSERT_NE(menu, PixelRect{});
    // The strip starts at 1018.
    EXPECT_LE(menu.bottom(), 1018) << menu;
    EXPECT_GE(menu.bottom(), 1010) << menu;
    EXPECT_NEAR(menu.center().x, 2802, 1) << menu;
}

TEST_F(DockReach, ATilesMenuOpensBesideASideDock) {
    run(R"("position": "right")");
    ASSERT_TRUE(iconIsAt(0, {3785, 440, 44, 44}));
    const auto menu = openMenu({3800, 450});
    ASSERT_NE(menu, PixelRect{});
    EXPECT_LE(menu.right(), 3778) << menu;
    EXPECT_GE(menu.right(), 3770) << menu;
    EXPECT_NEAR(menu.center().y, 462, 1) << menu;
}

}
}
