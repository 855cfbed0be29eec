#include "ProgramWindows/Controls/Switch.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"

#include <QSignalBlocker>

namespace vireline::xdg {
namespace {

constexpr int trackWidth = 42;
constexpr int trackHeight = 24;
constexpr double knobInset = 3;
constexpr int glideMilliseconds = 120;

QColor between(const QColor& off, const QColor& on, double share) {
    const auto mix = [share](int a, int b) { return static_cast<int>(a + (b - a) * share); };
    return {mix(off.red(), on.red()), mix(off.green(), on.green()), mix(off.blue(), on.blue())};
}

}

Switch::Switch(bool animates, QWidget* parent) : QCheckBox(parent), animates_(animates) {
    setCursor(Qt::ArrowCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    motion_.setDuration(glideMilliseconds);
    motion_.setEasingCurve(QEasingCurve::InOutQuad);
    QObject::connect(&motion_, &QVariantAnimation::valueChanged, this, [this](const QVariant& at) {
        knob_ = at.toDouble();
        update();
    });
    QObject::connect(this, &QAbstractButton::toggled, this, [this](bool isOn) { glide(isOn); });
}

QSize Switch::sizeHint() const {
    return {trackWidth + 2 * Painting::ringRoom, trackHeight + 2 * Painting::ringRoom};
}

void Switch::show(bool isOn) {
    if (isOn == isChecked())
        return;
    {
        const QSignalBlocker silent{this};
        setChecked(isOn);
    }
    glide(isOn);
}

void Switch::glide(bool isOn) {
    const double target = isOn ? 1 : 0;
    motion_.stop();
    if (!isVisible() || !animates_) {
        knob_ = target;
        update();
        return;
    }
    motion_.setStartValue(knob_);
    motion_.setEndValue(target);
    motion_.start();
}

bool Switch::hitButton(const QPoint& position) const {
    return rect().contains(position);
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
    SmoothPainter painter{*this};
    const QRectF track{double{Painting::ringRoom}, double{Painting::ringRoom}, trackWidth,
                       trackHeight};
    constexpr double radius = trackHeight / 2.0;
    const QPalette colours = palette();
    QColor ground =
        between(colours.color(QPalette::Dark), colours.color(QPalette::Highlight), knob_);
    if (isDown())
        ground = WindowPalette::pressed(colours, ground);
    Painting::fill(painter, track, radius, ground);

    const double side = trackHeight - 2 * knobInset;
    const double travel = trackWidth - trackHeight;
    const double along = layoutDirection() == Qt::RightToLeft ? 1 - knob_ : knob_;
    const QRectF knob{track.x() + knobInset + travel * along, track.y() + knobInset, side, side};
    constexpr int shade = 40;
    Painting::fill(painter, knob.translated(0, 0.75).adjusted(-0.5, -0.5, 0.5, 0.5), side / 2 + 0.5,
                   {0, 0, 0, shade});
    Painting::fill(painter, knob, side / 2, Qt::white);
    if (Painting::showsFocus(*this))
        Painting::ring(painter, *this, track, radius);
}

}
