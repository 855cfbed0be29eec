#include "ProgramWindows/Controls/RadioOption.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"

#include <algorithm>

namespace vireline::xdg {
namespace {

constexpr int circleSide = 18;
constexpr int labelGap = 10;
constexpr double dotSide = 8;

}

RadioOption::RadioOption(const QString& title, QWidget* parent) : QRadioButton(title, parent) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
}

QSize RadioOption::sizeHint() const {
    constexpr int air = 3;
    const QFontMetrics metrics = fontMetrics();
    return {circleSide + labelGap + metrics.horizontalAdvance(text()) + 2 * Painting::ringRoom,
            std::max(circleSide, metrics.height()) + 2 * (Painting::ringRoom + air)};
}

bool RadioOption::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void RadioOption::paintEvent(QPaintEvent* /*event*/) {
    SmoothPainter painter{*this};
    const QPalette colours = palette();
    const bool isReversed = layoutDirection() == Qt::RightToLeft;
    const int edge = Painting::ringRoom;
    const QRectF circle{isReversed ? width() - edge - circleSide : double(edge),
                        (height() - circleSide) / 2.0, circleSide, circleSide};
    constexpr double radius = circleSide / 2.0;
    if (isChecked()) {
        const QColor accent = colours.color(QPalette::Highlight);
        Painting::fill(painter, circle, radius,
                       isDown() ? WindowPalette::pressed(colours, accent) : accent);
        const double inset = (circleSide - dotSide) / 2;
        Painting::fill(painter, circle.adjusted(inset, inset, -inset, -inset), dotSide / 2,
                       Qt::white);
    } else {
        const QColor ground = colours.color(isDown() ? QPalette::Button : QPalette::Base);
        const QColor line = colours.color(QPalette::Dark);
        constexpr double thickness = 1.5;
        painter.setPen({underMouse() ? WindowPalette::pressed(colours, line) : line, thickness});
        painter.setBrush(ground);
        constexpr double half = thickness / 2;
        painter.drawEllipse(circle.adjusted(half, half, -half, -half));
    }
    painter.setPen(colours.color(QPalette::Text));
    const QRect label = isReversed ? rect().adjusted(0, 0, -(edge + circleSide + labelGap), 0)
                                   : rect().adjusted(edge + circleSide + labelGap, 0, 0, 0);
    const Qt::Alignment alignment =
        (isReversed ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    painter.drawText(label, static_cast<int>(alignment.toInt()), text());
    if (Painting::showsFocus(*this))
        Painting::ring(painter, *this, circle, radius);
}

}
