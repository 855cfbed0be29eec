#include "ClientWindows/WindowGoal.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace vireline::x11 {
namespace {

constexpr PixelRect monitor{1000, 0, 800, 600};

/// Two displays side by side with one pixel per point; goals are on the second.
std::vector<Display> twoDisplays() {
    const PixelRect primary{0, 0, 1000, 600};
    return {DisplayGeometry::display(primary, primary, 1),
            DisplayGeometry::display(monitor, primary, 1)};
}

WindowSnapshot windowOfAtLeast(int width, int height) {
    WindowSnapshot window{};
    window.client = {1100, 100, 300, 200};
    window.hints.minimum = {width, height};
    return window;
}

PixelRect placed(const Rect& frame, const WindowSnapshot& window,
                 const Rect& visible = {1000, 0, 800, 600}) {
    const auto all = twoDisplays();
    return WindowGoals::outerFrame({.frame = frame, .isSized = true, .visible = visible}, window,
                                   all);
}

TEST(WindowGoal, AWindowThatIsSmallEnoughGetsTheWholeFrame) {
    EXPECT_EQ(placed({1000, 0, 800, 508}, windowOfAtLeast(1, 1)), (PixelRect{1000, 0, 800, 508}));
}

TEST(WindowGoal, AboveADockAWindowThatIsTooHighReachesUp) {
    EXPECT_EQ(placed({1000, 0, 800, 508}, windowOfAtLeast(1, 550)),
              (PixelRect{1000, -42, 800, 550}));
}

TEST(WindowGoal, BesideADockAWindowThatIsTooWideReachesAwayFromIt) {
    const auto wide = windowOfAtLeast(770, 1);

    EXPECT_EQ(placed({1066, 0, 734, 600}, wide), (PixelRect{1066, 0, 770, 600}));
    EXPECT_EQ(placed({1000, 0, 734, 600}, wide), (PixelRect{964, 0, 770, 600}));
}

TEST(WindowGoal, AnothersPanelIsNotTakenForTheDock) {
    // A thick panel at the top and the dock at the bottom.
    EXPECT_EQ(placed({1000, 200, 800, 308}, windowOfAtLeast(1, 330), {1000, 200, 800, 400}),
              (PixelRect{1000, 178, 800, 330}));
}

TEST(WindowGoal, AFrameThatFillsNoEdgeIsBesideNoDock) {
    const auto large = windowOfAtLeast(420, 330);

    EXPECT_EQ(placed({1100, 150, 200, 100}, large), (PixelRect{1100, 150, 420, 330}));
    EXPECT_EQ(placed({1000, 0, 200, 100}, large), (PixelRect{1000, 0, 420, 330}));
    EXPECT_EQ(placed({1600, 0, 200, 600}, windowOfAtLeast(900, 1)), (PixelRect{1600, 0, 900, 600}))
        << "the dock is on the left";
}

TEST(WindowGoal, WhereNoDockIsAWindowStaysOnTheDisplayAsFarAsItFits) {
    const Rect frame{1040, 0, 760, 508};
    const Rect visible{1040, 0, 760, 600};

    EXPECT_EQ(placed(frame, windowOfAtLeast(790, 1), visible), (PixelRect{1010, 0, 790, 508}));
    EXPECT_EQ(placed(frame, windowOfAtLeast(900, 1), visible), (PixelRect{1040, 0, 900, 508}));
}

}
}
