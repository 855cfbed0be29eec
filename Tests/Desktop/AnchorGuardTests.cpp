/// The anchor guard keeps the pointer away from the bottom edges of displays with a dock, at any
/// speed.
#include "ClientWindows/GuardMath.hpp"
#include "DesktopTest.hpp"

#include <chrono>
#include <random>

namespace vireline::desktop {
namespace {

constexpr int bandDepth = 3;

class AnchorGuard : public DesktopTest {
protected:
    /// Runs the program with its guard on or off. The first monitor has no dock.
    VirtualDesktop& runWith(bool isOn, Options options = {}) {
        if (options.monitors.empty())
            options.monitors = threeMonitors();
        auto& desktop = make(options);
        desktop.home().pin(std::vector<App>{});
        desktop.home().writePreferences(R"({"onboardingCompleted": true, "anchorAppleDock": )" +
                                        std::string{isOn ? "true}" : "false}"});
        desktop.runVireline();
        EXPECT_TRUE(logs(isOn ? "anchor guard active" : "anchor guard off"));
        return desktop;
    }

    [[nodiscard]] testing::AssertionResult restsAt(PixelPoint place) {
        // Polls without pausing, since each query waits for the server's reply anyway.
        constexpr std::chrono::milliseconds interval{0};
        if (eventually([&] { return desktop().pointer().position() == place; }, conditionTimeout,
                       interval))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "the pointer is at " << desktop().pointer().position() << " and not at " << place;
    }

    /// The allowed resting position of a pointer that was moved to `moved`, with one pixel per
    /// point.
    [[nodiscard]] PixelPoint whereItMayRest(PixelPoint moved) {
        std::vector<Rect> displays;
        for (const Monitor& monitor : desktop().displays().monitors) {
            const PixelRect frame = monitor.frame;
            displays.push_back({static_cast<double>(frame.x), static_cast<double>(frame.y),
                                static_cast<double>(frame.width),
                                static_cast<double>(frame.height)});
        }
        std::vector<Rect> bands;
        for (const auto* name : {"above", "side"}) {
            const PixelRect display = desktop().monitor(name).frame;
            bands.push_back({static_cast<double>(display.x),
                             static_cast<double>(display.bottom() - bandDepth),
                             static_cast<double>(display.width), bandDepth});
        }
        const Point point{static_cast<double>(moved.x), static_cast<double>(moved.y)};
        const Point reached = GuardMath::clamp(point, bands, displays).value_or(point);
        return {static_cast<int>(reached.x), static_cast<int>(reached.y)};
    }

    /// Whether the program has handled all moves so far: waits until a pointer moved into a guarded
    /// band was put back.
    [[nodiscard]] bool hasCaughtUp() {
        const PixelRect side = desktop().monitor("side").frame;
        const PixelPoint below{side.x + 17, side.bottom() - 1};
        desktop().pointer().moveTo(below);
        return eventually([&] {
            return desktop().pointer().position() == PixelPoint{below.x, side.bottom() - bandDepth};
        });
    }
};

TEST_F(AnchorGuard, LeavesAPushedPointerAtTheBandsTop) {
    runWith(true);
    for (const auto* name : {"side", "above"}) {
        const PixelRect display = desktop().monitor(name).frame;
        for (int depth = 1; depth <= bandDepth; ++depth) {
            desktop().pointer().moveTo(display.center());
            desktop().pointer().moveTo({display.x + 5, display.bottom() - depth});
            EXPECT_TRUE(restsAt({display.x + 5, display.bottom() - bandDepth}));
        }
    }
}

TEST_F(AnchorGuard, LetsAPointerRestRightAboveTheBand) {
    runWith(true);
    const PixelRect display = desktop().monitor("side").frame;
    const PixelPoint top{display.x + 300, display.bottom() - bandDepth};
    desktop().pointer().moveTo(top);
    ASSERT_TRUE(hasCaughtUp());
    desktop().pointer().moveTo(top);
    EXPECT_TRUE(restsAt(top));
}

TEST_F(AnchorGuard, BringsBackAPointerThatShotPastTheDisplaysEnd) {
    runWith(true);
    const PixelRect display = desktop().monitor("side").frame;
    desktop().pointer().moveTo({display.x + 40, display.bottom() + 500});
    EXPECT_TRUE(restsAt({display.x + 40, display.bottom() - bandDepth}));
}

TEST_F(AnchorGuard, LetsThePointerDownToADisplayBelowAGuardedOne) {
    const std::vector<Monitor> stacked{{"main", {0, 0, 1280, 800}},
                                       {"upper", {1280, 0, 1280, 800}},
                                       {"lower", {1280, 800, 800, 600}}};
    // The lower display has the desktop's own dock, and therefore none of ours.
    auto& desktop = make({.monitors = stacked});
    desktop.reserve({"lower", Edge::bottom, 40});
    desktop.home().pin(std::vector<App>{});
    desktop.home().writePreferences(R"({"onboardingCompleted": true, "anchorAppleDock": true})");
    desktop.runVireline();
    ASSERT_TRUE(logs("anchor guard active"));
    // Only the part of the upper display with nothing below it is guarded; that also reveals when
    // the program has handled the earlier moves.
    const auto isHeldBeside = [&] {
        desktop.pointer().moveTo({2300, 1100});
        return restsAt({2300, 797});
    };
    EXPECT_TRUE(isHeldBeside());
    for (const int y : {798, 799, 800, 801, 1100, 1398}) {
        desktop.pointer().moveTo({1600, y});
        desktop.pointer().moveTo({1601, y});
        ASSERT_TRUE(isHeldBeside());
        desktop.pointer().moveTo({1600, y});
        EXPECT_TRUE(restsAt({1600, y}));
    }
}

TEST_F(AnchorGuard, LeavesADisplayWithoutADockFree) {
    runWith(true);
    // There is nothing guarded above this part of it.
    const PixelRect main = desktop().monitor("main").frame;
    const PixelPoint corner{main.right() - 10, main.bottom() - 1};
    desktop().pointer().moveTo(corner);
    ASSERT_TRUE(hasCaughtUp());
    desktop().pointer().moveTo(corner);
    EXPECT_TRUE(restsAt(corner));
}

TEST_F(AnchorGuard, HoldsWithTheLeftButtonDown) {
    runWith(true);
    const PixelRect display = desktop().monitor("side").frame;
    desktop().pointer().moveTo({display.x + 20, display.y + 100});
    desktop().pointer().press(Pointer::Button::primary);
    desktop().pointer().moveTo({display.x + 30, display.bottom() - 1});
    EXPECT_TRUE(restsAt({display.x + 30, display.bottom() - bandDepth}));
    desktop().pointer().release(Pointer::Button::primary);
}

TEST_F(AnchorGuard, HoldsWhileAnotherProgramDragsWithTheLeftButton) {
    auto& desktop = runWith(true);
    const App app = someApps(1).front();
    const PixelRect display = desktop.monitor("side").frame;
    desktop.launch(
        app, {"--at", std::to_string(display.x + 100) + "," + std::to_string(display.y + 100)});
    ASSERT_TRUE(eventually([&] { return desktop.isActive(app); }));
    // Pressing the button grabs the pointer for the window below until the release.
    desktop.pointer().moveTo({display.x + 200, display.y + 200});
    desktop.pointer().press(Pointer::Button::primary);
    desktop.pointer().moveTo({display.x + 210, display.bottom() - 2});
    EXPECT_TRUE(restsAt({display.x + 210, display.bottom() - bandDepth}));
    desktop.pointer().release(Pointer::Button::primary);
}

TEST_F(AnchorGuard, LetsOtherButtonsDragIntoTheBand) {
    constexpr int moves = 200;
    runWith(true);
    const PixelRect display = desktop().monitor("side").frame;
    desktop().pointer().moveTo({display.x + 60, display.y + 100});
    desktop().pointer().press(Pointer::Button::secondary);
    for (int i = 0; i < moves; ++i) {
        const PixelPoint edge{display.x + 60 + i, display.bottom() - 1};
        desktop().pointer().moveTo(edge);
        ASSERT_EQ(desktop().pointer().position(), edge);
    }
    desktop().pointer().release(Pointer::Button::secondary);
}

TEST_F(AnchorGuard, CountsPointsOnADisplayOfAnotherScale) {
    runWith(true, {.monitors = twoMonitors(), .scales = {{"left", 1}, {"right", 2}}});
    const PixelRect display = desktop().monitor("right").frame;
    desktop().pointer().moveTo({display.x + 100, display.bottom() - 1});
    EXPECT_TRUE(restsAt({display.x + 100, display.bottom() - 2 * bandDepth}));
}

TEST_F(AnchorGuard, NeverLetsARandomPointerRestInABand) {
    constexpr int moves = 10'000;
    runWith(true);
    std::mt19937 random{20'250'314};
    const auto between = [&random](int low, int high) {
        return std::uniform_int_distribution{low, high}(random);
    };
    int corrected = 0;
    for (int i = 0; i < moves; ++i) {
        // Two of four moves are aimed at a guarded band.
        const PixelRect aim = desktop().displays().monitors.at(i % 4 == 0 ? 1 : 2).frame;
        const PixelPoint to =
            i % 4 < 2 ? PixelPoint{between(aim.x, aim.right() - 1),
                                   between(aim.bottom() - 2 * bandDepth, aim.bottom() + bandDepth)}
                      : PixelPoint{between(0, 4000), between(0, 2000)};
        desktop().pointer().moveTo(to);
        ASSERT_TRUE(restsAt(whereItMayRest(to))) << "move " << i << " to " << to;
        corrected += whereItMayRest(to) == to ? 0 : 1;
    }
    EXPECT_GT(corrected, moves / 4);
}

TEST_F(AnchorGuard, LeavesNothingBehindWhenTheProgramEnds) {
    auto& desktop = runWith(true);
    ASSERT_TRUE(hasCaughtUp());
    desktop.stopVireline();
    const PixelRect display = desktop.monitor("side").frame;
    const PixelPoint edge{display.x + 200, display.bottom() - 1};
    desktop.pointer().moveTo(edge);
    EXPECT_EQ(desktop.pointer().position(), edge);
}

TEST_F(AnchorGuard, IsNotThereWhileItIsOff) {
    runWith(false);
    const PixelRect display = desktop().monitor("side").frame;
    const PixelPoint edge{display.x + 5, display.bottom() - 1};
    desktop().pointer().moveTo(edge);
    EXPECT_EQ(desktop().pointer().position(), edge);
}

TEST_F(AnchorGuard, WorksWithoutAWindowManager) {
    Options options{.monitors = threeMonitors(), .windowManager = false};
    auto& desktop = make(options);
    desktop.home().pin(std::vector<App>{});
    desktop.home().writePreferences(R"({"onboardingCompleted": true, "anchorAppleDock": true})");
    desktop.runVireline();
    ASSERT_TRUE(logs("anchor guard active"));
    const PixelRect display = desktop.monitor("side").frame;
    EXPECT_TRUE(eventually([&] {
        desktop.pointer().moveTo({display.x + 50, display.y + 100});
        desktop.pointer().moveTo({display.x + 50, display.bottom() - 1});
        return desktop.pointer().position() ==
               PixelPoint{display.x + 50, display.bottom() - bandDepth};
    }));
}

TEST_F(AnchorGuard, FollowsTheDisplays) {
    auto& desktop = runWith(true);
    auto monitors = threeMonitors();
    monitors[2].frame.height = 600;
    desktop.setMonitors(monitors);
    const PixelRect display = monitors[2].frame;
    EXPECT_TRUE(eventually([&] {
        desktop.pointer().moveTo({display.x + 50, display.y + 100});
        desktop.pointer().moveTo({display.x + 50, display.bottom() - 1});
        const PixelPoint top{display.x + 50, display.bottom() - bandDepth};
        return eventually([&] { return desktop.pointer().position() == top; },
                          std::chrono::milliseconds{100});
    }));
}

}
}
