#include "ProgramWindows/Controls/ValueSlider.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"

#include <QMouseEvent>
#include <algorithm>
#include <cmath>

namespace vireline::xdg {
namespace {

constexpr int knobSide = 20;
constexpr double grooveHeight = 4;
constexpr double knobReach = knobSide / 2.0 + Painting::ringRoom;

}

ValueSlider::ValueSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // The style would allow keyboard focus only on some desktops.
    setFocusPolicy(Qt::StrongFocus);
}

QSize ValueSlider::sizeHint() const {
    constexpr int comfortable = 190;
    return {comfortable, knobSide + 2 * Painting::ringRoom};
}

QSize ValueSlider::minimumSizeHint() const {
    constexpr int usable = 80;
    return {usable, knobSide + 2 * Painting::ringRoom};
}

bool ValueSlider::isReversed() const {
    return layoutDirection() == Qt::RightToLeft;
}

double ValueSlider::knobPosition() const {
    const int steps = std::max(1, maximum() - minimum());
    const double share = double(value() - minimum()) / steps;
    const double travel = width() - 2 * knobReach;
    return knobReach + travel * (isReversed() ? 1 - share : share);
}

int ValueSlider::valueAt(double x) const {
    const double travel = std::max(1.0, width() - 2 * knobReach);
    const double share = std::clamp((x - knobReach) / travel, 0.0, 1.0);
    return minimum() + static_cast<int>(std::lround((isReversed() ? 1 - share : share) *
                                                    (maximum() - minimum())));
}

void ValueSlider::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    setSliderDown(true);
    setValue(valueAt(event->position().x()));
    update();
}

void ValueSlider::mouseMoveEvent(QMouseEvent* event) {
    if (isSliderDown())
        setValue(valueAt(event->position().x()));
}

void ValueSlider::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    setSliderDown(false);
    update();
}

void ValueSlider::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void ValueSlider::paintEvent(QPaintEvent* /*event*/) {
    SmoothPainter painter{*this};
    const QPalette colours = palette();
    const double middle = height() / 2.0;
    const double knob = knobPosition();
    const QRectF groove{knobReach - grooveHeight / 2, middle - grooveHeight / 2,
                        width() - 2 * knobReach + grooveHeight, grooveHeight};
    Painting::fill(painter, groove, grooveHeight / 2, colours.color(QPalette::Dark));
    QRectF filled = groove;
    if (isReversed())
        filled.setLeft(knob);
    else
        filled.setRight(knob);
    Painting::fill(painter, filled, grooveHeight / 2, colours.color(QPalette::Highlight));

    constexpr double half = knobSide / 2.0;
    const QRectF circle{knob - half, middle - half, knobSide, knobSide};
    constexpr int shade = 46;
    Painting::fill(painter, circle.translated(0, 0.75).adjusted(-0.5, -0.5, 0.5, 0.5), half + 0.5,
                   {0, 0, 0, shade});
    Painting::fill(painter, circle, half,
                   isSliderDown() ? QColor{236, 236, 240} : QColor{Qt::white});
    Painting::outline(painter, circle, half, {0, 0, 0, shade});
    if (Painting::showsFocus(*this))
        Painting::ring(painter, *this, circle, half);
}

}
