#include "Panels/PanelPicture.hpp"

#include <gtest/gtest.h>

namespace vireline::xdg {
namespace {

/// A dock of 100 × 40 points with two pixels per point, in a window with 10 pixels above it.
class PanelPictureTest : public testing::Test {
protected:
    PanelPictureTest() {
        picture.setLayout({.window = {200, 90},
                           .active = {0, 10, 200, 80},
                           .mapping = {QPoint{0, 10}, 2},
                           .view = {100, 40}});
        paint();
    }

    Damage paint(Backdrop backdrop = Backdrop::translucent) {
        return picture.paint(image, DockColors::of(false, backdrop), backdrop);
    }

    static Scene glass(const Rect& frame) {
        return {{{.id = {}, .frame = frame, .content = GlassNode{4}}}, {}};
    }

    PanelPicture picture;
    QImage image{200, 90, QImage::Format_ARGB32_Premultiplied};
};

TEST_F(PanelPictureTest, IsPaintedOnlyWhereItChanged) {
    EXPECT_FALSE(picture.isDamaged());
    picture.setScene(glass({10, 10, 20, 20}));
    ASSERT_TRUE(picture.isDamaged());
    const Damage painted = paint();
    ASSERT_EQ(painted.rects().size(), 1U);
    const QRect changed = painted.rects().front();
    EXPECT_TRUE(changed.contains(QRect(20, 30, 40, 40)));
    EXPECT_FALSE(changed.contains(100, 50));
    EXPECT_FALSE(picture.isDamaged());
}

TEST_F(PanelPictureTest, TakesThePointerInTheScenesRegionOrElseInTheDocksFrame) {
    EXPECT_EQ(picture.inputRegion(), QRect(0, 10, 200, 80));
    Scene scene;
    scene.inputRegion = Rect{0, 30, 100, 30};
    picture.setScene(scene);
    EXPECT_EQ(picture.inputRegion(), QRect(0, 70, 200, 20)) << "never beyond the window";
}

TEST_F(PanelPictureTest, KnowsWhereItsGlassIs) {
    EXPECT_TRUE(picture.glass().isEmpty());
    picture.setScene(glass({10, 10, 20, 20}));
    EXPECT_TRUE(picture.glass().contains(QPoint(40, 50)));
    EXPECT_FALSE(picture.glass().contains(QPoint(100, 50)));
}

TEST_F(PanelPictureTest, FillsAnOpaqueDocksFrameBesideTheView) {
    picture.setLayout({.window = {200, 90},
                       .active = {0, 0, 200, 90},
                       .mapping = {QPoint{0, 10}, 2},
                       .view = {100, 40}});
    paint(Backdrop::opaque);
    EXPECT_EQ(qAlpha(image.pixel(100, 5)), 255);
    EXPECT_EQ(qAlpha(image.pixel(100, 50)), 0);
    picture.damageAll();
    paint(Backdrop::translucent);
    EXPECT_EQ(qAlpha(image.pixel(100, 5)), 0);
}

}
}
