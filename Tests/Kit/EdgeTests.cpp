#include "Views/Edge.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

constexpr Edge bottom{DockPosition::bottom, {200, 80}};
constexpr Edge left{DockPosition::left, {80, 200}};
constexpr Edge right{DockPosition::right, {80, 200}};

TEST(Edge, IsAsLongAsTheViewAlongItAndAsThickAsAcross) {
    for (const Edge& edge : {bottom, left, right}) {
        EXPECT_EQ(edge.length(), 200);
        EXPECT_EQ(edge.thickness(), 80);
    }
    EXPECT_TRUE(bottom.isHorizontal());
    EXPECT_FALSE(left.isHorizontal());
    EXPECT_FALSE(right.isHorizontal());
}

TEST(Edge, TellsHowFarAPointIsAlongAndAway) {
    EXPECT_EQ(bottom.along({30, 70}), 30);
    EXPECT_EQ(bottom.distance({30, 70}), 10);
    EXPECT_EQ(left.along({30, 70}), 70);
    EXPECT_EQ(left.distance({30, 70}), 30);
    EXPECT_EQ(right.along({30, 70}), 70);
    EXPECT_EQ(right.distance({30, 70}), 50);
}

TEST(Edge, TurnsAMovementAlongAndAwayIntoTheViews) {
    EXPECT_EQ(bottom.vector(3, 5), (Point{3, -5}));
    EXPECT_EQ(left.vector(3, 5), (Point{5, 3}));
    EXPECT_EQ(right.vector(3, 5), (Point{-5, 3}));
}

TEST(Edge, PlacesARectangleByItsDistanceFromTheEdge) {
    EXPECT_EQ(bottom.rect(20, 30, 7, 44), (Rect{20, 29, 30, 44}));
    EXPECT_EQ(left.rect(20, 30, 7, 44), (Rect{7, 20, 44, 30}));
    EXPECT_EQ(right.rect(20, 30, 7, 44), (Rect{29, 20, 44, 30}));
}

}
}
