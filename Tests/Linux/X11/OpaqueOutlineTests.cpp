#include "Panels/Picture/OpaqueOutline.hpp"

#include <gtest/gtest.h>

#include <QPainter>
#include <QRegion>

namespace vireline::x11 {
namespace {

QImage blank(int width, int height) {
    QImage image{width, height, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    return image;
}

QRegion outlineOf(const QImage& image) {
    QRegion region;
    for (const xcb_rectangle_t& rect : OpaqueOutline::rectangles(image)) {
        region += QRect{rect.x, rect.y, rect.width, rect.height};
    }
    return region;
}

TEST(OpaqueOutline, IsEmptyForATransparentImage) {
    EXPECT_TRUE(OpaqueOutline::rectangles(blank(20, 10)).empty());
}

TEST(OpaqueOutline, OfARectangleIsOneRectangle) {
    QImage image = blank(20, 10);
    QPainter{&image}.fillRect(3, 2, 8, 5, Qt::white);
    EXPECT_EQ(OpaqueOutline::rectangles(image).size(), 1U);
    EXPECT_EQ(outlineOf(image), QRegion(3, 2, 8, 5));
}

TEST(OpaqueOutline, ReachesTheEdgesOfTheWindow) {
    QImage image = blank(20, 10);
    image.fill(Qt::white);
    EXPECT_EQ(outlineOf(image), QRegion(0, 0, 20, 10));
}

TEST(OpaqueOutline, FollowsSeparatePartsOfARow) {
    QImage image = blank(20, 10);
    QPainter painter{&image};
    painter.fillRect(0, 0, 4, 10, Qt::white);
    painter.fillRect(10, 5, 10, 5, Qt::white);
    painter.end();
    EXPECT_EQ(outlineOf(image), QRegion(0, 0, 4, 10) + QRegion(10, 5, 10, 5));
}

TEST(OpaqueOutline, HoldsAHandleAtTwoFifthsAndLeavesSoftEdgesOut) {
    QImage image = blank(20, 10);
    QPainter painter{&image};
    painter.fillRect(0, 0, 10, 10, QColor{0, 0, 0, 102});
    painter.fillRect(10, 0, 10, 10, QColor{0, 0, 0, 40});
    painter.end();
    EXPECT_EQ(outlineOf(image), QRegion(0, 0, 10, 10));
}

TEST(OpaqueOutline, MixesTranslucentPixelsOverTheBase) {
    EXPECT_EQ(OpaqueOutline::over(0x00000000U, 0xff102030U), 0xff102030U);
    EXPECT_EQ(OpaqueOutline::over(0xff405060U, 0xff102030U), 0xff405060U);
    EXPECT_EQ(OpaqueOutline::over(0x80000000U, 0xff808080U), 0xff3f3f3fU);
}

}
}
