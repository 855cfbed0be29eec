#include "Layout/Edge.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

constexpr Edge bottomEdge{DockPosition::bottom, {200, 80}};
constexpr Edge leftEdge{DockPosition::left, {80, 200}};
constexpr Edge rightEdge{DockPosition::right, {80, 200}};

TEST(Edge, IsAsLongAsTheViewAlongItAndAsThickAsAcross) {
    for (const Edge& edge : {bottomEdge, leftEdge, rightEdge}) {
        EXPECT_EQ(edge.length(), 200);
        EXPECT_EQ(edge.thickness(), 80);
    }
    EXPECT_TRUE(bottomEdge.isHorizontal());
    EXPECT_FALSE(leftEdge.isHorizontal());
    EXPECT_FALSE(rightEdge.isHorizontal());
}

TEST(Edge, TellsHowFarAPointIsAlongAndAway) {
    EXPECT_EQ(bottomEdge.along({30, 70}), 30);
    EXPECT_EQ(bottomEdge.distance({30, 70}), 10);
    EXPECT_EQ(leftEdge.along({30, 70}), 70);
    EXPECT_EQ(leftEdge.distance({30, 70}), 30);
    EXPECT_EQ(rightEdge.along({30, 70}), 70);
    EXPECT_EQ(rightEdge.distance({30, 70}), 50);
}

TEST(Edge, TurnsAMovementAlongAndAwayIntoTheViews) {
    EXPECT_EQ(bottomEdge.vector(3, 5), (Point{3, -5}));
    EXPECT_EQ(leftEdge.vector(3, 5), (Point{5, 3}));
    EXPECT_EQ(rightEdge.vector(3, 5), (Point{-5, 3}));
}

TEST(Edge, PlacesARectangleByItsDistanceFromTheEdge) {
    EXPECT_EQ(bottomEdge.rect(20, 30, 7, 44), (Rect{20, 29, 30, 44}));
    EXPECT_EQ(leftEdge.rect(20, 30, 7, 44), (Rect{7, 20, 44, 30}));
    EXPECT_EQ(rightEdge.rect(20, 30, 7, 44), (Rect{29, 20, 44, 30}));
}

}
}
