#include "ProgramWindows/Controls/ValueLabel.hpp"

#include <QPainter>
#include <algorithm>
#include <ranges>

namespace vireline::xdg {

ValueLabel::ValueLabel(int width, QWidget* parent) : QWidget(parent) {
    setFixedWidth(width);
}

void ValueLabel::setText(const QString& text) {
    if (text == text_)
        return;
    text_ = text;
    update();
}

int ValueLabel::digitWidth() const {
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, fontMetrics().horizontalAdvance(QLatin1Char{digit}));
    return widest;
}

void ValueLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    painter.setPen(palette().color(QPalette::PlaceholderText));
    const int cell = digitWidth();
    int x = width();
    for (const QChar letter : text_ | std::views::reverse) {
        x -= cell;
        painter.drawText(QRect{x, 0, cell, height()}, Qt::AlignCenter, QString{letter});
    }
}

}
