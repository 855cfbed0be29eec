#include "Painting/LabelPainter.hpp"

#include "Painting/Glass.hpp"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <cmath>
#include <utility>

namespace vireline::xdg {
namespace {

struct Layout {
    QRect capsule;
    QString text;
    QFont font;
};

QFont fontOf(int pixelSize) {
    QFont font = QGuiApplication::font();
    font.setWeight(QFont::Medium);
    font.setPixelSize(pixelSize);
    return font;
}

Layout layOut(const LabelNode& label, const PlacedNode& place) {
    Layout layout;
    layout.font = fontOf(std::max(1, static_cast<int>(std::lround(label.fontSize * place.scale))));
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

void LabelPainter::draw(const Canvas& canvas, const LabelNode& label, const PlacedNode& place,
                        const DockColors& colors, const QRect& clip) {
    const QImage& shown =
        picture({label, place.rect.size(), place.scale, colors, QGuiApplication::font()}, place);
    const QPointF corner = place.rect.center() - QPointF(shown.width() / 2.0, shown.height() / 2.0);
    const QRect area = ViewMappings::snappedAsWhole({corner, QSizeF(shown.size())});
    Pixels::blend(canvas, Pixels::pieceOf(shown, area.topLeft()), place.alpha, clip);
}

const QImage& LabelPainter::picture(Key key, const PlacedNode& place) {
    const auto known = std::ranges::find(entries_, key, &Entry::key);
    if (known != entries_.end())
        return known->picture;
    if (entries_.size() == most)
        entries_.erase(entries_.begin());
    QImage rendered = render(layOut(key.label, place), place, key.colors);
    return entries_.emplace_back(std::move(key), std::move(rendered)).picture;
}

QRect LabelPainter::capsule(const LabelNode& label, const PlacedNode& place) {
    return layOut(label, place).capsule;
}

void LabelPainter::prepareFont() {
    constexpr int usualSize = 13;
    static_cast<void>(
        QFontMetricsF{fontOf(usualSize)}.horizontalAdvance(QStringLiteral("Vireline")));
}

}
