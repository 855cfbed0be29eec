#include "ProgramWindows/Controls/PushButton.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"

#include <algorithm>

namespace vireline::xdg {
namespace {

struct Measures {
    int height;
    int sidePadding;
    double radius;
};

Measures measures(PushButton::Look look) {
    return look == PushButton::Look::compact ? Measures{26, 12, 7} : Measures{34, 18, 9};
}

}

PushButton::PushButton(const QString& title, Look look, QWidget* parent)
    : QPushButton(title, parent), look_(look) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (look == Look::prominent) {
        QFont bold = font();
        bold.setWeight(QFont::DemiBold);
        setFont(bold);
    }
}

QSize PushButton::sizeHint() const {
    constexpr int air = 8;
    const Measures size = measures(look_);
    const int height = std::max(size.height, fontMetrics().height() + air);
    return {fontMetrics().horizontalAdvance(text()) + 2 * (size.sidePadding + Painting::ringRoom),
            height + 2 * Painting::ringRoom};
}

bool PushButton::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
    SmoothPainter painter{*this};
    const QPalette colours = palette();
    const bool isProminent = look_ == Look::prominent;
    QColor ground = colours.color(isProminent ? QPalette::Highlight : QPalette::Button);
    if (isDown())
        ground = WindowPalette::pressed(colours, ground);
    else if (underMouse())
        ground = WindowPalette::hovered(colours, ground);
    const QRectF shape = QRectF{rect()}.adjusted(Painting::ringRoom, Painting::ringRoom,
                                                 -Painting::ringRoom, -Painting::ringRoom);
    const double radius = measures(look_).radius;
    Painting::fill(painter, shape, radius, ground);
    painter.setPen(colours.color(isProminent ? QPalette::HighlightedText : QPalette::ButtonText));
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (Painting::showsFocus(*this))
        Painting::ring(painter, *this, shape, radius);
}

}
