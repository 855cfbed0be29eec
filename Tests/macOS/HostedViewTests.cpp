#include "Translation/HostedView.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

/// A dock at the bottom whose window extends 4 points further down.
constexpr HostedView raised{{0, 4, 300, 84}};

TEST(HostedView, CountsFromItsTopLeftCornerDownwards) {
    EXPECT_EQ(raised.toView({10, 88}), (Point{10, 0}));
    EXPECT_EQ(raised.toView({10, 4}), (Point{10, 84}));
}

TEST(HostedView, APointBesideItStaysBesideIt) {
    EXPECT_EQ(raised.toView({10, 0}), (Point{10, 88}));
}

TEST(HostedView, LiesOnWholePixelsOfItsDisplay) {
    EXPECT_EQ(HostedView::onWholePixels({0.3, 4, 300, 97.25}, 1), (Rect{0, 3.75, 300, 97.25}));
    EXPECT_EQ(HostedView::onWholePixels({0.3, 4, 300, 97.25}, 2), (Rect{0.5, 4.25, 300, 97.25}));
    EXPECT_EQ(HostedView::onWholePixels({0, 4, 300, 84}, 1), (Rect{0, 4, 300, 84}));
}

TEST(HostedView, KnowsWindowsThatStayAtTheRight) {
    EXPECT_TRUE(HostedView::staysAtRight({900, 0, 100, 300}, {996, 0, 4, 300}));
    EXPECT_FALSE(HostedView::staysAtRight({0, 0, 100, 300}, {0, 0, 4, 300}));
    EXPECT_FALSE(HostedView::staysAtRight({10, 0, 300, 84}, {10, 0, 300, 4}));
}

TEST(HostedView, MayReachOutOfItsWindow) {
    constexpr HostedView collapsedAtTheRight{{-54, 0, 58, 300}};

    EXPECT_EQ(collapsedAtTheRight.toView({0, 300}), (Point{54, 0}));
}

}
}
