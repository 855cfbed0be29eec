#include "Displays/Struts.hpp"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <random>

namespace vireline::x11 {
namespace {

/// One display above and to the left of the primary, the primary, and one to its right whose bottom
/// is an inner edge.
constexpr std::array<PixelRect, 3> monitors{
    PixelRect{0, 0, 1280, 900}, PixelRect{1280, 900, 1920, 1080}, PixelRect{3200, 400, 640, 800}};
constexpr PixelRect root{0, 0, 3840, 1980};

std::vector<PixelRect> visible(std::vector<StrutWindow> windows) {
    return Struts::visibleFrames(monitors, root, windows);
}

TEST(Struts, LeaveMonitorsWholeWithoutPanels) {
    EXPECT_EQ(visible({}), std::vector(monitors.begin(), monitors.end()));
}

TEST(Struts, CountOnTheMonitorOfTheirWindowAlone) {
    const auto frames = visible({{{1280, 1940, 1920, 40}, {.bottom = 40}}});
    EXPECT_EQ(frames[0], monitors[0]);
    EXPECT_EQ(frames[1], (PixelRect{1280, 900, 1920, 1040}));
    EXPECT_EQ(frames[2], monitors[2]);
}

TEST(Struts, AreMeasuredFromTheRootsEdgeOnAnInnerEdge) {
    // There are 780 pixels between the bottom of the third monitor and that of the root window.
    const auto frames = visible({{{3200, 1170, 640, 30}, {.bottom = 780 + 30}}});
    EXPECT_EQ(frames[2], (PixelRect{3200, 400, 640, 770}));
}

TEST(Struts, MeasuredFromTheMonitorByMistakeAreReadOffTheWindow) {
    const auto frames = visible({{{3200, 1170, 640, 30}, {.bottom = 30}}});
    EXPECT_EQ(frames[2], (PixelRect{3200, 400, 640, 770}));
}

TEST(Struts, WorkOnAllFourEdges) {
    const auto frames = visible({{{1280, 900, 50, 1080}, {.left = 1330}},
                                 {{3140, 900, 60, 1080}, {.right = 640 + 60}},
                                 {{1280, 900, 1920, 25}, {.top = 925}},
                                 {{1280, 1940, 1920, 40}, {.bottom = 40}}});
    EXPECT_EQ(frames[1], (PixelRect{1330, 925, 1920 - 110, 1080 - 65}));
}

TEST(Struts, KeepTheDeepestOfSeveralOnOneEdge) {
    const auto frames = visible({{{1280, 1940, 800, 40}, {.bottom = 40}},
                                 {{2080, 1920, 800, 60}, {.bottom = 60}},
                                 {{2880, 1950, 300, 30}, {.bottom = 30}}});
    EXPECT_EQ(frames[1].height, 1080 - 60);
}

TEST(Struts, CountWhereMostOfTheWindowIs) {
    const auto frames = visible({{{1180, 880, 300, 40}, {.top = 940}}});
    EXPECT_EQ(frames[0], monitors[0]);
    EXPECT_EQ(frames[1], (PixelRect{1280, 940, 1920, 1040}));
}

TEST(Struts, OfAWindowOutsideAllMonitorsAreIgnored) {
    const auto frames = visible({{{0, 1200, 400, 40}, {.bottom = 40}}});
    EXPECT_EQ(frames, std::vector(monitors.begin(), monitors.end()));
}

TEST(Struts, ThatLeaveNothingAreIgnored) {
    constexpr auto huge = std::numeric_limits<std::uint32_t>::max();
    const auto frames = visible({{monitors[1], {huge, huge, huge, huge}},
                                 {{1280, 900, 1000, 1080}, {.left = 1280 + 1000}},
                                 {{2200, 900, 1000, 1080}, {.right = 640 + 1000}}});
    EXPECT_EQ(frames[1], (PixelRect{2280, 900, 920, 1080}));
}

TEST(Struts, NeverGiveMoreThanTheMonitorWhateverIsSet) {
    std::mt19937 random{3};
    std::uniform_int_distribution<int> position{-500, 4000};
    std::uniform_int_distribution<std::uint32_t> depth{0, 5000};
    for (int turn = 0; turn < 2000; ++turn) {
        std::vector<StrutWindow> windows;
        windows.reserve(5);
        for (int i = 0; i < 5; ++i) {
            windows.push_back({{position(random), position(random), position(random) + 500,
                                position(random) + 500},
                               {depth(random), depth(random), depth(random), depth(random)}});
        }
        const auto frames = visible(windows);
        for (std::size_t i = 0; i < monitors.size(); ++i) {
            ASSERT_FALSE(frames[i].isEmpty());
            ASSERT_EQ(frames[i].overlap(monitors[i]),
                      std::int64_t{frames[i].width} * frames[i].height);
        }
    }
}

TEST(Struts, ArePartialOnesBeforePlainOnes) {
    const std::vector<std::uint32_t> partial{0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 1280, 3199};
    const std::vector<std::uint32_t> plain{0, 0, 25, 0};
    EXPECT_EQ(Struts::read(partial, plain), (Strut{.bottom = 40}));
    EXPECT_EQ(Struts::read({}, plain), (Strut{.top = 25}));
}

TEST(Struts, AreAbsentIfTheirLengthIsWrong) {
    const std::vector<std::uint32_t> three{1, 2, 3};
    EXPECT_EQ(Struts::read(three, three), std::nullopt);
    EXPECT_EQ(Struts::read({}, {}), std::nullopt);
}

TEST(Struts, AreAbsentIfAllNumbersAreZero) {
    const std::vector<std::uint32_t> zeros(12, 0);
    EXPECT_EQ(Struts::read(zeros, {}), std::nullopt);
}

}
}
