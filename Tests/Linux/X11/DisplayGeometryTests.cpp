#include "Displays/DisplayGeometry.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace vireline::x11 {
namespace {

constexpr PixelRect primary{1280, 900, 1920, 1080};

/// Displays on every side of the primary, with integer and fractional scales.
std::vector<Display> displays() {
    std::vector<Display> all;
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
        for (const PixelRect& monitor :
             {primary, PixelRect{0, 0, 1281, 1023}, PixelRect{3200, 37, 3840, 2160},
              PixelRect{1280, 1980, 1920, 1201}}) {
            all.push_back(DisplayGeometry::display(monitor, primary, scale));
        }
    }
    return all;
}

TEST(DisplayGeometry, PutsThePrimaryAtTheOrigin) {
    const Display display = DisplayGeometry::display(primary, primary, 2);
    EXPECT_EQ(DisplayGeometry::frame(display), (Rect{0, 0, 960, 540}));
}

TEST(DisplayGeometry, MeasuresOtherDisplaysFromThePrimarysCornerUnscaled) {
    const Display aboveLeft = DisplayGeometry::display({0, 0, 1280, 1024}, primary, 2);
    EXPECT_EQ(DisplayGeometry::frame(aboveLeft), (Rect{-1280, 956, 640, 512}));
    const Display below = DisplayGeometry::display({1280, 1980, 1600, 1200}, primary, 1);
    EXPECT_EQ(DisplayGeometry::frame(below), (Rect{0, -1200, 1600, 1200}));
}

TEST(DisplayGeometry, TreatsAnInvalidScaleAsOne) {
    for (const double scale : {0.0, -2.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(DisplayGeometry::display(primary, primary, scale).scale, 1);
    }
}

TEST(DisplayGeometry, PutsADockFourPointsOffTheBottomEdge) {
    const Display display = DisplayGeometry::display({3200, 0, 3840, 2160}, primary, 2);
    const Rect frame = DisplayGeometry::frame(display);
    const PixelRect dock =
        DisplayGeometry::toPixels(display, {frame.midX() - 200, frame.minY() + 4, 400, 84});
    EXPECT_EQ(dock, (PixelRect{3200 + 1920 - 400, 2160 - 8 - 168, 800, 168}));
}

TEST(DisplayGeometry, GivesWholePixelsBackUnchanged) {
    std::mt19937 random{7};
    std::uniform_int_distribution<int> position{-3000, 6000};
    std::uniform_int_distribution<int> length{1, 4000};
    for (const Display& display : displays()) {
        for (int i = 0; i < 500; ++i) {
            const PixelRect pixels{position(random), position(random), length(random),
                                   length(random)};
            const Rect points = DisplayGeometry::toPoints(display, pixels);
            ASSERT_EQ(DisplayGeometry::toPixels(display, points), pixels)
                << "scale " << display.scale;
        }
    }
}

TEST(DisplayGeometry, NeverDriftsOverRepeatedReframes) {
    std::mt19937 random{11};
    std::uniform_real_distribution<double> position{-2000, 2000};
    std::uniform_real_distribution<double> length{1, 900};
    for (const Display& display : displays()) {
        for (int i = 0; i < 100; ++i) {
            Rect frame{position(random), position(random), length(random), length(random)};
            const PixelRect first = DisplayGeometry::toPixels(display, frame);
            for (int turn = 0; turn < 50; ++turn) {
                frame =
                    DisplayGeometry::toPoints(display, DisplayGeometry::toPixels(display, frame));
            }
            ASSERT_EQ(DisplayGeometry::toPixels(display, frame), first);
        }
    }
}

TEST(DisplayGeometry, LeavesEachEdgeWithinHalfAPixel) {
    std::mt19937 random{13};
    std::uniform_real_distribution<double> position{-2000, 2000};
    std::uniform_real_distribution<double> length{2, 900};
    for (const Display& display : displays()) {
        for (int i = 0; i < 200; ++i) {
            const Rect frame{position(random), position(random), length(random), length(random)};
            const Rect placed =
                DisplayGeometry::toPoints(display, DisplayGeometry::toPixels(display, frame));
            const double tolerance = 0.5 / display.scale + 1e-9;
            ASSERT_NEAR(placed.minX(), frame.minX(), tolerance);
            ASSERT_NEAR(placed.maxX(), frame.maxX(), tolerance);
            ASSERT_NEAR(placed.minY(), frame.minY(), tolerance);
            ASSERT_NEAR(placed.maxY(), frame.maxY(), tolerance);
        }
    }
}

TEST(DisplayGeometry, KeepsTouchingRectanglesTouching) {
    for (const Display& display : displays()) {
        for (double edge = 0; edge < 40; edge += 0.37) {
            const Rect panel{100.2, 50 + edge, 300.6, 84};
            const Rect sliver{100.2, 46 + edge, 300.6, 4};
            const PixelRect above = DisplayGeometry::toPixels(display, panel);
            const PixelRect below = DisplayGeometry::toPixels(display, sliver);
            ASSERT_EQ(above.bottom(), below.y);
            ASSERT_EQ(above.x, below.x);
            ASSERT_EQ(above.width, below.width);
        }
    }
}

TEST(DisplayGeometry, NeverMakesAWindowWithoutPixels) {
    const Display display = DisplayGeometry::display(primary, primary, 1);
    const PixelRect nothing = DisplayGeometry::toPixels(display, {10, 10, 0, 0.2});
    EXPECT_EQ(nothing.width, 1);
    EXPECT_EQ(nothing.height, 1);
}

TEST(DisplayGeometry, KeepsAbsurdFramesWithinTheProtocolsReach) {
    const Display display = DisplayGeometry::display(primary, primary, 2);
    const PixelRect pixels = DisplayGeometry::toPixels(display, {-1e300, -1e300, 2e300, 2e300});
    EXPECT_LE(pixels.width, 65535);
    EXPECT_LE(pixels.height, 65535);
}

TEST(DisplayGeometry, LaysTheViewOutFromTheWindowsBottomLeftCorner) {
    const Display display = DisplayGeometry::display({0, 0, 3840, 2160}, {0, 0, 3840, 2160}, 2);
    const Rect window{100, 0, 400, 88};
    EXPECT_EQ(DisplayGeometry::viewPixels(display, window, {0, 4, 400, 84}),
              (PixelRect{0, 0, 800, 168}));
    EXPECT_EQ(DisplayGeometry::viewPixels(display, {100, 0, 400, 4}, {0, 0, 400, 84}),
              (PixelRect{0, -160, 800, 168}));
    EXPECT_EQ(DisplayGeometry::viewPixels(display, {1916, 10, 4, 300}, {-54, 0, 58, 300}),
              (PixelRect{-108, 0, 116, 600}));
}

}
}
