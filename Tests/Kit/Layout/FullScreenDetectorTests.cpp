#include "Layout/FullScreenDetector.hpp"
#include "Support/Samples.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using FullScreenDetector::displaysWithFullScreenWindow;
using Displays = std::set<std::uint32_t>;

constexpr Rect frame{-1920, -120, 1920, 1080};

Displays coveredBy(const WindowInfo& window) {
    const std::vector screens{test::sampleScreen(1, {0, 0, 1440, 900}),
                              test::sampleScreen(2, frame)};
    return displaysWithFullScreenWindow(std::vector{window}, screens);
}

Rect changed(double x, double y, double width, double height) {
    return {frame.x + x, frame.y + y, frame.width + width, frame.height + height};
}

// Behaviour: screens-4
TEST(FullScreenDetector, CountsAnOrdinaryWindowThatCoversADisplayButForAFewPoints) {
    EXPECT_EQ(coveredBy({.frame = frame}), Displays{2});
    EXPECT_EQ(coveredBy({.frame = changed(1, 0, 0, -3)}), Displays{2});
    EXPECT_EQ(coveredBy({.frame = changed(3, 0, 0, 0)}), Displays{});
    EXPECT_EQ(coveredBy({.frame = frame, .layer = 25}), Displays{});
    EXPECT_EQ(coveredBy({.frame = frame, .layer = -1}), Displays{});
}

TEST(FullScreenDetector, AllowsExactlyTwoPointsOfPlaceAndFourOfSize) {
    EXPECT_EQ(coveredBy({.frame = changed(2, -2, 4, -4)}), Displays{2});
    for (const Rect& off : {changed(2.5, 0, 0, 0), changed(0, -2.5, 0, 0), changed(0, 0, 4.5, 0),
                            changed(0, 0, 0, -4.5)})
        EXPECT_EQ(coveredBy({.frame = off}), Displays{}) << off;
}

TEST(FullScreenDetector, FindsEveryCoveredDisplay) {
    const std::vector screens{test::sampleScreen(1, {0, 0, 1440, 900}),
                              test::sampleScreen(2, frame),
                              test::sampleScreen(3, {1440, 0, 1440, 900})};
    const std::vector<WindowInfo> windows{
        {.frame = {10, 10, 300, 200}}, {.frame = screens[2].frame}, {.frame = frame}};
    EXPECT_EQ(displaysWithFullScreenWindow(windows, screens), (Displays{2, 3}));
}

TEST(FullScreenDetector, FindsNothingWithoutDisplaysOrWindows) {
    EXPECT_EQ(displaysWithFullScreenWindow(std::vector<WindowInfo>{{.frame = frame}}, {}),
              Displays{});
    EXPECT_EQ(displaysWithFullScreenWindow({}, std::vector{test::sampleScreen(2, frame)}),
              Displays{});
}

}
}
