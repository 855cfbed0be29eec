#include "Painting/Pixels/Pixels.hpp"
#include "Painting/Pixels/SmoothScaler.hpp"

#include <gtest/gtest.h>

#include <QPainter>
#include <cstdlib>
#include <random>

namespace vireline::xdg {
namespace {

constexpr QImage::Format format = QImage::Format_ARGB32_Premultiplied;

QImage plain(int width, int height, QRgb pixel) {
    QImage image{width, height, format};
    image.fill(QColor::fromRgba(pixel));
    return image;
}

QImage noise(int width, int height, unsigned seed) {
    std::mt19937 random{seed};
    QImage image{width, height, QImage::Format_ARGB32};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, static_cast<QRgb>(random()));
    }
    return image.convertToFormat(format);
}

/// The largest difference in any channel of any pixel.
int difference(const QImage& a, const QImage& b) {
    int most = 0;
    for (int y = 0; y < a.height(); ++y) {
        const auto* const first = a.constScanLine(y);
        const auto* const second = b.constScanLine(y);
        for (int i = 0; i < 4 * a.width(); ++i)
            most = std::max(most, std::abs(first[i] - second[i]));
    }
    return most;
}

TEST(Pixels, AreLaidOverEachOtherAsAPainterDoes) {
    for (const int width : {1, 2, 3, 16, 33}) {
        for (const int alpha : {255, 128, 1}) {
            QImage canvas = noise(50, 20, 1);
            QImage expected = canvas;
            const QImage picture = noise(width, 9, 2);
            Pixels::blend(Pixels::canvas(canvas), Pixels::pieceOf(picture, {7, 5}), alpha,
                          canvas.rect());
            QPainter painter{&expected};
            painter.setOpacity(alpha / 255.0);
            painter.drawImage(7, 5, picture);
            painter.end();
            EXPECT_LE(difference(canvas, expected), 1) << width << ' ' << alpha;
        }
    }
}

TEST(Pixels, StayWithinTheClipAndTheCanvas) {
    QImage canvas = plain(20, 20, 0xff102030);
    const QImage before = canvas;
    const QImage picture = plain(40, 40, 0xffffffff);
    const QRect clip{5, 6, 7, 8};
    Pixels::blend(Pixels::canvas(canvas), Pixels::pieceOf(picture, {-10, -10}), 255, clip);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            const QRgb expected = clip.contains(x, y) ? 0xffffffffU : before.pixel(x, y);
            ASSERT_EQ(canvas.pixel(x, y), expected) << x << ' ' << y;
        }
    }
    Pixels::copy(Pixels::canvas(canvas), Pixels::pieceOf(picture, {30, 30}), canvas.rect());
    Pixels::fill(Pixels::canvas(canvas), {-5, -5, 100, 100}, 0);
    EXPECT_EQ(difference(canvas, plain(20, 20, 0)), 0);
}

TEST(Pixels, PutsAPartOfAPictureInPlaceOfWhatIsThere) {
    QImage canvas = plain(10, 4, 0xff00ff00);
    const QImage picture = noise(30, 4, 3);
    Pixels::copy(Pixels::canvas(canvas), {Pixels::picture(picture), {12, 0, 6, 4}, {2, 0}},
                 canvas.rect());
    EXPECT_EQ(canvas.pixel(1, 0), 0xff00ff00U);
    EXPECT_EQ(canvas.copy(2, 0, 6, 4), picture.copy(12, 0, 6, 4));
    EXPECT_EQ(canvas.pixel(8, 0), 0xff00ff00U);
}

TEST(SmoothScaler, DrawsOneToOneWithoutAnyChange) {
    SmoothScaler scaler;
    for (const int side : {1, 2, 7, 44}) {
        const QImage picture = noise(side, side, 4);
        QImage canvas = plain(60, 60, 0);
        scaler.draw(Pixels::canvas(canvas), Pixels::picture(picture), QRectF(3, 5, side, side), 255,
                    canvas.rect());
        EXPECT_EQ(canvas.copy(3, 5, side, side), picture) << side;
    }
}

TEST(SmoothScaler, KeepsAPlainColourAtAnySizeAndPlace) {
    SmoothScaler scaler;
    const QImage picture = plain(66, 66, 0xff3070c0);
    for (double side = 34; side < 70; side += 0.37) {
        QImage canvas = plain(90, 90, 0xff3070c0);
        scaler.draw(Pixels::canvas(canvas), Pixels::picture(picture),
                    QRectF(5 + side / 100, 7.3, side, side), 255, canvas.rect());
        ASSERT_LE(difference(canvas, plain(90, 90, 0xff3070c0)), 2) << side;
    }
}

TEST(SmoothScaler, CoversPixelsAtTheEdgeInPart) {
    SmoothScaler scaler;
    QImage canvas = plain(20, 20, 0xff000000);
    scaler.draw(Pixels::canvas(canvas), Pixels::picture(plain(8, 8, 0xffffffff)),
                QRectF(4.25, 6, 8, 8), 255, canvas.rect());
    EXPECT_NEAR(qRed(canvas.pixel(4, 9)), 191, 2);
    EXPECT_EQ(qRed(canvas.pixel(5, 9)), 255);
    EXPECT_NEAR(qRed(canvas.pixel(12, 9)), 64, 2);
    EXPECT_EQ(qRed(canvas.pixel(13, 9)), 0);
}

TEST(SmoothScaler, IsCloseToWhatAPainterDraws) {
    SmoothScaler scaler;
    QImage picture = plain(64, 64, 0);
    QPainter drawing{&picture};
    drawing.setRenderHint(QPainter::Antialiasing);
    drawing.setBrush(QLinearGradient{0, 0, 64, 64});
    drawing.drawEllipse(4, 4, 56, 56);
    drawing.end();
    for (const double side : {40.5, 52.25, 63.9}) {
        QImage canvas = plain(80, 80, 0xffa0b0c0);
        QImage expected = canvas;
        const QRectF rect{6.4, 8.7, side, side};
        scaler.draw(Pixels::canvas(canvas), Pixels::picture(picture), rect, 255, canvas.rect());
        QPainter painter{&expected};
        painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
        painter.drawImage(rect, picture, QRectF{picture.rect()});
        painter.end();
        EXPECT_LE(difference(canvas, expected), 12) << side;
    }
}

TEST(SmoothScaler, FadesAndStaysWithinTheClip) {
    SmoothScaler scaler;
    QImage canvas = plain(40, 40, 0xff000000);
    const QRect clip{10, 12, 9, 5};
    scaler.draw(Pixels::canvas(canvas), Pixels::picture(plain(20, 20, 0xffffffff)),
                QRectF(2.5, 2.5, 30, 30), 128, clip);
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 40; ++x)
            ASSERT_NEAR(qRed(canvas.pixel(x, y)), clip.contains(x, y) ? 128 : 0, 2);
    }
}

}
}
