#include "Translation/HostedView.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

/// A dock at the bottom whose window reaches 4 points further down.
constexpr HostedView raised{{0, 4, 300, 84}};

TEST(HostedView, CountsFromItsTopLeftCornerDownwards) {
    EXPECT_EQ(raised.toView({10, 88}), (Point{10, 0}));
    EXPECT_EQ(raised.toView({10, 4}), (Point{10, 84}));
}

TEST(HostedView, APointBesideItStaysBesideIt) {
    EXPECT_EQ(raised.toView({10, 0}), (Point{10, 88}));
}

TEST(HostedView, MayReachOutOfItsWindow) {
    constexpr HostedView collapsedAtTheRight{{-54, 0, 58, 300}};

    EXPECT_EQ(collapsedAtTheRight.toView({0, 300}), (Point{54, 0}));
}

}
}
