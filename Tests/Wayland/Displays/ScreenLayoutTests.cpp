#include "Displays/ScreenLayout.hpp"
#include "Displays/SwayWorkspaces.hpp"

#include <gtest/gtest.h>

namespace vireline::wayland {
namespace {

const OutputState left{.name = "DP-1", .geometry = {0, 0, 1920, 1080}, .reserved = {}};
const OutputState right{.name = "DP-2", .geometry = {1920, -200, 1280, 1024}, .reserved = {}};

TEST(ScreenLayout, TreatsTheDisplayAtTheOriginAsPrimary) {
    const auto ordered = ScreenLayout::inOrder({right, left});
    EXPECT_EQ(ordered.front(), left);
}

TEST(ScreenLayout, CountsUpwardsFromThePrimarysBottomLeftCorner) {
    const auto screens = ScreenLayout::screens({left, right});
    ASSERT_EQ(screens.size(), 2U);
    EXPECT_EQ(screens[0].frame, (Rect{0, 0, 1920, 1080}));
    EXPECT_EQ(screens[1].frame, (Rect{1920, 256, 1280, 1024}));
}

TEST(ScreenLayout, LeavesOutWhatIsReserved) {
    OutputState output = right;
    output.reserved = {.left = 10, .top = 20, .right = 30, .bottom = 40};
    const auto screens = ScreenLayout::screens({left, output});
    EXPECT_EQ(screens[1].visibleFrame, (Rect{1930, 296, 1240, 964}));
}

TEST(ScreenLayout, ConvertsBackToTheCompositorsCoordinates) {
    EXPECT_EQ(ScreenLayout::toLayout({1920, 256, 1280, 1024}, left.geometry),
              QRectF(right.geometry));
}

TEST(ScreenLayout, GivesEachNameItsOwnID) {
    EXPECT_EQ(ScreenLayout::displayID("DP-1"), ScreenLayout::displayID("DP-1"));
    EXPECT_NE(ScreenLayout::displayID("DP-1"), ScreenLayout::displayID("DP-2"));
}

TEST(ScreenLayout, DividesWhatIsReservedBetweenTheEdges) {
    EXPECT_EQ(ScreenLayout::withoutGaps({800, 600}, {800, 530},
                                        {.left = 0, .top = 30, .right = 0, .bottom = 40}),
              (Insets{.left = 0, .top = 30, .right = 0, .bottom = 40}));
}

TEST(ScreenLayout, DoesNotTakeGapsAroundWindowsForPanels) {
    EXPECT_EQ(ScreenLayout::withoutGaps({800, 600}, {800, 560},
                                        {.left = 10, .top = 10, .right = 10, .bottom = 50}),
              (Insets{.left = 0, .top = 0, .right = 0, .bottom = 40}));
}

TEST(ScreenLayout, IgnoresAWorkspaceThatIsElsewhere) {
    // The display has moved, but the answer about its workspace is still the old one.
    EXPECT_EQ(ScreenLayout::withoutGaps({800, 600}, {800, 600},
                                        {.left = -1280, .top = 0, .right = 1280, .bottom = 0}),
              Insets{});
}

TEST(SwayWorkspaces, AreThoseThatAreShown) {
    const auto areas = SwayWorkspaces::parse(
        R"([{"output": "A", "visible": true, "rect": {"x": 0, "y": 30, "width": 800, "height": 570}},
            {"output": "A", "visible": false, "rect": {"x": 0, "y": 0, "width": 8, "height": 8}},
            {"output": "B", "visible": true, "rect": {"x": 800, "y": 0, "width": 640, "height": 480}}])");
    EXPECT_EQ(areas, (SwayWorkspaces::Areas{{"A", {0, 30, 800, 570}}, {"B", {800, 0, 640, 480}}}));
}

TEST(SwayWorkspaces, AreUnknownAfterAnAnswerThatMakesNoSense) {
    EXPECT_TRUE(SwayWorkspaces::parse("{]").empty());
    EXPECT_EQ(SwayWorkspaces::parse(R"([1, {"visible": true}])"),
              (SwayWorkspaces::Areas{{"", QRect{0, 0, 0, 0}}}));
}

}
}
