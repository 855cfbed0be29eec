#include "Painting/BadgePainter.hpp"

#include "Painting/Glass.hpp"

#include <QFont>
#include <QGuiApplication>
#include <QPainter>
#include <QString>
#include <algorithm>
#include <utility>

namespace vireline::xdg {
namespace {

/// The text's height and the outline's width, as fractions of the capsule's height.
constexpr double textHeight = 0.68;
constexpr double outlineWidth = 0.07;

QImage renderBadge(const std::string& text, QSize size, const DockColors& colors) {
    QImage picture{size, QImage::Format_ARGB32_Premultiplied};
    picture.fill(Qt::transparent);
    QPainter painter{&picture};
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QRectF whole{QPointF{}, QSizeF{size}};
    const double line = std::max(1.0, outlineWidth * size.height());
    painter.fillPath(Glass::roundedPath(whole, whole.height()), colors.badgeOutline);
    const QRectF inner = whole.adjusted(line, line, -line, -line);
    painter.fillPath(Glass::roundedPath(inner, inner.height()), colors.badge);
    QFont font = QGuiApplication::font();
    font.setWeight(QFont::Bold);
    font.setPixelSize(std::max(1, static_cast<int>(textHeight * size.height())));
    painter.setFont(font);
    painter.setPen(colors.badgeText);
    painter.drawText(whole, Qt::AlignCenter | Qt::TextSingleLine, QString::fromStdString(text));
    return picture;
}

}

void BadgePainter::draw(const Canvas& canvas, const std::string& text, const PlacedNode& place,
                        const DockColors& colors, const QRect& clip) {
    const QRect whole = place.rect.toRect();
    const QImage& shown = picture({text, whole.size(), colors});
    Pixels::blend(canvas, Pixels::pieceOf(shown, whole.topLeft()), place.alpha, clip);
}

const QImage& BadgePainter::picture(Key key) {
    const auto known = std::ranges::find(entries_, key, &Entry::key);
    if (known != entries_.end())
        return known->picture;
    if (entries_.size() == most)
        entries_.erase(entries_.begin());
    QImage rendered = renderBadge(key.text, key.size, key.colors);
    return entries_.emplace_back(std::move(key), std::move(rendered)).picture;
}

}
