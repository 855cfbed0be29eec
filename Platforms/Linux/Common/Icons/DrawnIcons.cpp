#include "Icons/DrawnIcons.hpp"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace vireline::xdg::DrawnIcons {
namespace {

/// The drawings are laid out in a square this many units wide.
constexpr double units = 64;

template <class Draw>
QImage drawn(int side, Draw draw) {
    QImage image{side, side, QImage::Format_ARGB32_Premultiplied};
    image.fill(Qt::transparent);
    QPainter painter{&image};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / units, side / units);
    draw(painter);
    return image;
}

QLinearGradient downwards(double from, double to, QColor top, QColor bottom) {
    QLinearGradient gradient{0, from, 0, to};
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

void drawApplication(QPainter& painter) {
    constexpr double radius = 13;
    const QRectF tile{5, 5, 54, 54};
    painter.setPen(Qt::NoPen);
    painter.setBrush(downwards(tile.top(), tile.bottom(), {232, 236, 241}, {189, 197, 207}));
    painter.drawRoundedRect(tile, radius, radius);
    painter.setPen(QPen{QColor{255, 255, 255, 150}, 1});
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(tile.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);

    const QRectF window{16, 19, 32, 26};
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor{93, 105, 120});
    painter.drawRoundedRect(window, 4, 4);
    painter.setBrush(QColor{243, 246, 249});
    painter.drawRoundedRect(window.adjusted(2, 8, -2, -2), 2, 2);
    painter.setBrush(QColor{200, 208, 217});
    for (int i = 0; i < 3; ++i) {
        painter.drawEllipse(QPointF{20.0 + 4 * i, 23}, 1.2, 1.2);
    }
}

void drawTrash(QPainter& painter) {
    QPainterPath bin;
    bin.moveTo(15, 20);
    bin.lineTo(49, 20);
    bin.lineTo(45.5, 54);
    bin.quadTo(45, 58, 41, 58);
    bin.lineTo(23, 58);
    bin.quadTo(19, 58, 18.5, 54);
    bin.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.setBrush(downwards(20, 58, {214, 220, 227}, {168, 177, 188}));
    painter.drawPath(bin);

    painter.setPen(QPen{QColor{120, 130, 142}, 2.4, Qt::SolidLine, Qt::RoundCap});
    painter.drawLine(QPointF{25, 27}, QPointF{27, 51});
    painter.drawLine(QPointF{32, 27}, QPointF{32, 51});
    painter.drawLine(QPointF{39, 27}, QPointF{37, 51});

    painter.setPen(Qt::NoPen);
    painter.setBrush(downwards(10, 20, {232, 236, 241}, {190, 198, 208}));
    painter.drawRoundedRect(QRectF{11, 14, 42, 6}, 3, 3);
    painter.drawRoundedRect(QRectF{25, 8, 14, 7}, 3, 3);
}

}

QImage application(int side) {
    return drawn(side, drawApplication);
}

QImage trash(int side) {
    return drawn(side, drawTrash);
}

}
