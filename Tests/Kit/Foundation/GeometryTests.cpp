#include "Foundation/Geometry.hpp"
#include "Support/Random.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

constexpr Rect leftDisplay{-1280, -200, 1280, 1024};

Rect randomRect(test::Random& random) {
    return {static_cast<double>(random.integer(-100, 100)),
            static_cast<double>(random.integer(-100, 100)),
            static_cast<double>(random.integer(0, 100)),
            static_cast<double>(random.integer(0, 100))};
}

TEST(Geometry, KnowsTheEdgesAndTheCentreOfARectangle) {
    EXPECT_EQ(leftDisplay.minX(), -1280);
    EXPECT_EQ(leftDisplay.maxX(), 0);
    EXPECT_EQ(leftDisplay.midX(), -640);
    EXPECT_EQ(leftDisplay.minY(), -200);
    EXPECT_EQ(leftDisplay.maxY(), 824);
    EXPECT_EQ(leftDisplay.midY(), 312);
    EXPECT_EQ(leftDisplay.center(), (Point{-640, 312}));
    EXPECT_EQ(leftDisplay.size(), (Size{1280, 1024}));
}

TEST(Geometry, CountsTheNearEdgesOfARectangleToItAndTheFarOnesNot) {
    EXPECT_TRUE(leftDisplay.contains({-1280, -200}));
    EXPECT_TRUE(leftDisplay.contains({-0.001, 823.999}));
    EXPECT_FALSE(leftDisplay.contains({0, 0}));
    EXPECT_FALSE(leftDisplay.contains({-640, 824}));
    EXPECT_FALSE(leftDisplay.contains({-1280.001, 0}));
}

TEST(Geometry, HoldsNoPointInAnEmptyRectangle) {
    EXPECT_FALSE((Rect{5, 5, 0, 10}).contains({5, 6}));
    EXPECT_FALSE((Rect{}).contains({0, 0}));
}

TEST(Geometry, PutsEachPointOfAdjoiningRectanglesIntoOneOfThem) {
    const Rect right{0, -200, 1920, 1080};
    for (const Point p : {Point{-1, 0}, Point{0, 0}, Point{0.5, 0}})
        EXPECT_NE(leftDisplay.contains(p), right.contains(p)) << p;
}

TEST(Geometry, UnitesRectanglesIntoTheSmallestThatHoldsBoth) {
    EXPECT_EQ((Rect{0, 0, 10, 10}).united({20, -5, 5, 5}), (Rect{0, -5, 25, 15}));
    EXPECT_EQ((Rect{0, 0, 10, 10}).united({2, 2, 3, 3}), (Rect{0, 0, 10, 10}));

    test::Random random{41};
    for (int round = 0; round < 1'000; ++round) {
        const Rect a = randomRect(random);
        const Rect b = randomRect(random);
        const Rect both = a.united(b);
        EXPECT_EQ(both, b.united(a));
        EXPECT_EQ(both.minX(), std::min(a.minX(), b.minX()));
        EXPECT_EQ(both.maxX(), std::max(a.maxX(), b.maxX()));
        EXPECT_EQ(both.minY(), std::min(a.minY(), b.minY()));
        EXPECT_EQ(both.maxY(), std::max(a.maxY(), b.maxY()));
    }
}

TEST(Geometry, BeginsAtTheOriginWithoutAnExtent) {
    EXPECT_EQ(Point{}, (Point{0, 0}));
    EXPECT_EQ(Size{}, (Size{0, 0}));
    EXPECT_EQ(Rect{}, (Rect{0, 0, 0, 0}));
}

}
}
