#include "Layout/DockLocationDetector.hpp"
#include "Support/Samples.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using DockLocationDetector::dockHost;
using test::sampleScreen;

constexpr Rect primary{0, 0, 1920, 1080};
constexpr Rect aboveLeft{-1280, 1080, 1280, 1024};

ScreenSnapshot screenShowing(std::uint32_t id, const Rect& frame, const Rect& visible) {
    ScreenSnapshot screen = sampleScreen(id, frame);
    screen.visibleFrame = visible;
    return screen;
}

TEST(DockLocationDetector, FindsNothingWithoutDisplays) {
    EXPECT_FALSE(dockHost({}));
}

// Behaviour: screens-2
TEST(DockLocationDetector, TakesTheFirstDisplayWhereNoneShowsAnInset) {
    const std::vector screens{sampleScreen(5, primary), sampleScreen(3, aboveLeft)};
    EXPECT_EQ(dockHost(screens), 5U);
}

// Behaviour: screens-3
TEST(DockLocationDetector, FindsADisplayInsetAtItsLeft) {
    const std::vector screens{sampleScreen(1, primary),
                              screenShowing(2, aboveLeft, {-1220, 1080, 1220, 1024})};
    EXPECT_EQ(dockHost(screens), 2U);
}

TEST(DockLocationDetector, FindsADisplayInsetAtItsBottomOrRight) {
    const std::vector atBottom{sampleScreen(1, primary),
                               screenShowing(2, aboveLeft, {-1280, 1150, 1280, 954})};
    EXPECT_EQ(dockHost(atBottom), 2U);
    const std::vector atRight{sampleScreen(1, primary),
                              screenShowing(2, aboveLeft, {-1280, 1080, 1200, 1024})};
    EXPECT_EQ(dockHost(atRight), 2U);
}

TEST(DockLocationDetector, DoesNotMistakeAMenuBarForADock) {
    const std::vector screens{screenShowing(1, primary, {0, 0, 1920, 1055}),
                              screenShowing(2, aboveLeft, {-1280, 1150, 1280, 930})};
    EXPECT_EQ(dockHost(screens), 2U);
}

TEST(DockLocationDetector, TakesTheFirstOfSeveralInsetDisplays) {
    const std::vector screens{sampleScreen(1, primary), test::sampleHost(7, aboveLeft),
                              test::sampleHost(4, {1920, -300, 1080, 1920})};
    EXPECT_EQ(dockHost(screens), 7U);
}

}
}
