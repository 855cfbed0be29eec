#include "Panels/LabelPainter.hpp"

#include "Panels/Glass.hpp"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <utility>

namespace vireline::x11 {
namespace {

struct Layout {
    QRect capsule;
    QString text;
    QFont font;
};

Layout layOut(const LabelNode& label, const PlacedNode& place) {
    Layout layout;
    layout.font = QGuiApplication::font();
    layout.font.setWeight(QFont::Medium);
    layout.font.setPixelSize(
        std::max(1, static_cast<int>(std::lround(label.fontSize * place.scale))));
    const QFontMetricsF metrics{layout.font};
    const QRectF& room = place.rect;
    const QSizeF padding{label.padding.width * place.scale, label.padding.height * place.scale};
    const double widest = std::max(0.0, room.width() - 2 * padding.width());
    layout.text =
        metrics.elidedText(QString::fromStdString(label.text).simplified(), Qt::ElideRight, widest);
    const double width =
        std::min(room.width(), metrics.horizontalAdvance(layout.text) + 2 * padding.width());
    const double height = std::min(room.height(), metrics.height() + 2 * padding.height());
    layout.capsule = ViewMappings::snappedAsWhole(
        {room.center().x() - width / 2, room.center().y() - height / 2, width, height});
    return layout;
}

QImage render(const Layout& layout, const PlacedNode& place, const DockColors& colors) {
    QImage picture{layout.capsule.size(), QImage::Format_ARGB32_Premultiplied};
    picture.fill(Qt::transparent);
    QPainter painter{&picture};
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    Glass::draw(painter, picture.rect(), colors.label(picture.height() / 2.0, place.scale));
    painter.setFont(layout.font);
    painter.setPen(colors.text);
    painter.drawText(QRectF{picture.rect()}, Qt::AlignCenter | Qt::TextSingleLine, layout.text);
    return picture;
}

}

void LabelPainter::draw(QPainter& painter, const LabelNode& label, const PlacedNode& place,
                        const DockColors& colors) {
    Key key{label, place.rect.size(), place.scale, colors, QGuiApplication::font()};
    if (picture_.isNull() || key != key_) {
        picture_ = render(layOut(label, place), place, colors);
        key_ = std::move(key);
    }
    const QPointF corner =
        place.rect.center() - QPointF(picture_.width() / 2.0, picture_.height() / 2.0);
    painter.drawImage(ViewMappings::snappedAsWhole({corner, QSizeF(picture_.size())}).topLeft(),
                      picture_);
}

QRect LabelPainter::capsule(const LabelNode& label, const PlacedNode& place) {
    return layOut(label, place).capsule;
}

}
