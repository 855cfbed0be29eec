#include "Panels/PanelGeometry.hpp"

#include <gtest/gtest.h>

namespace vireline::x11 {
namespace {

/// Two pixels per point, right of a display 1000 pixels wide.
const Display dense{{1000, 0, 2000, 1200}, {1000, 0}, 2};
constexpr Rect collapsed{1100, 0, 300, 4};
constexpr Rect expanded{1100, 0, 300, 60};

TEST(PanelGeometry, AimsAtTheFrameAndItsOverhangInPixels) {
    PanelGeometry geometry{dense, expanded};
    geometry.setOverhang({.top = 10});
    geometry.aim();
    EXPECT_EQ(geometry.target(), (PixelRect{1200, 1080, 600, 120})) << "the overhang is for later";

    geometry.setFrame(expanded, false);
    geometry.aim();
    EXPECT_EQ(geometry.target(), (PixelRect{1200, 1060, 600, 140}));
    EXPECT_EQ(geometry.viewArea(), (Rect{0, -10, 300, 70}));
}

TEST(PanelGeometry, KeepsTheExtentWhileItShrinksWithAnAnimation) {
    PanelGeometry geometry{dense, expanded};
    geometry.setFrame(collapsed, true);
    geometry.aim();
    EXPECT_EQ(geometry.target(), (PixelRect{1200, 1080, 600, 120}));

    EXPECT_TRUE(geometry.endAnimation());
    geometry.aim();
    EXPECT_EQ(geometry.target(), (PixelRect{1200, 1192, 600, 8}));
    EXPECT_FALSE(geometry.endAnimation());
}

TEST(PanelGeometry, GrowsAtOnce) {
    PanelGeometry geometry{dense, collapsed};
    geometry.setFrame(expanded, true);
    geometry.aim();
    EXPECT_EQ(geometry.target(), (PixelRect{1200, 1080, 600, 120}));
    EXPECT_FALSE(geometry.endAnimation());
}

TEST(PanelGeometry, KeepsTheViewInPlaceInAWindowThatIsElsewhere) {
    PanelGeometry geometry{dense, expanded};
    geometry.aim();
    const PixelRect late{1180, 1090, 600, 120};

    EXPECT_EQ(geometry.drawnPlace(late), late);
    const auto layout = geometry.layOut(late);

    EXPECT_EQ(layout.window, (QSize{600, 120}));
    EXPECT_EQ(layout.active, (QRect{20, -10, 600, 120}));
    EXPECT_EQ(layout.mapping, (xdg::ViewMapping{{20, -10}, 2}));
    EXPECT_EQ(geometry.mapping(), layout.mapping);
}

TEST(PanelGeometry, DrawsForItsPlaceWhileTheWindowIsFarAway) {
    PanelGeometry geometry{dense, expanded};
    geometry.aim();

    EXPECT_EQ(geometry.drawnPlace(std::nullopt), geometry.target());
    EXPECT_EQ(geometry.drawnPlace(PixelRect{0, 0, 500, 100}), (PixelRect{1200, 1080, 500, 100}));
}

}
}
