#include "ProgramWindows/Controls/SegmentedControl.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <memory>

namespace vireline::xdg {
namespace {

constexpr int segmentHeight = 28;
constexpr int segmentPadding = 15;
constexpr double radius = 8;
constexpr double inset = 2.5;

/// The frame around the segments is painted by the control, so that there is room for the focus
/// ring.
class Segment final : public QRadioButton {
public:
    Segment(const QString& title, QWidget* parent) : QRadioButton(title, parent) {
        setAttribute(Qt::WA_Hover);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    [[nodiscard]] QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(text()) + 2 * segmentPadding,
                std::max(segmentHeight, fontMetrics().height() + 8) + 2 * Painting::ringRoom};
    }
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    [[nodiscard]] bool hitButton(const QPoint& position) const override {
        return rect().contains(position);
    }

    void paintEvent(QPaintEvent* /*event*/) override {
        SmoothPainter painter{*this};
        const QPalette colours = palette();
        const QRectF shape = QRectF{rect()}.adjusted(inset, Painting::ringRoom + inset, -inset,
                                                     -(Painting::ringRoom + inset));
        constexpr double inner = radius - inset;
        if (isChecked()) {
            constexpr int shade = 34;
            Painting::fill(painter, shape.translated(0, 0.75).adjusted(-0.5, 0, 0.5, 0.5), inner,
                           {0, 0, 0, shade});
            Painting::fill(painter, shape, inner, colours.color(QPalette::Light));
        } else if (underMouse()) {
            Painting::fill(painter, shape, inner,
                           WindowPalette::hovered(colours, colours.color(QPalette::Button)));
        }
        painter.setPen(colours.color(QPalette::Text));
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (Painting::showsFocus(*this))
            Painting::ring(painter, *this, shape, inner);
    }
};

}

SegmentedControl::SegmentedControl(const QStringList& titles, QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto row = std::make_unique<QHBoxLayout>();
    row->setContentsMargins(Painting::ringRoom, 0, Painting::ringRoom, 0);
    row->setSpacing(0);
    for (const QString& title : titles) {
        auto segment = std::make_unique<Segment>(title, this);
        const std::size_t index = segments_.size();
        QObject::connect(segment.get(), &QAbstractButton::toggled, this, [this, index](bool isOn) {
            if (isOn && onChoice)
                onChoice(index);
        });
        segments_.push_back(segment.get());
        row->addWidget(segment.release());
    }
    setLayout(row.release());
}

void SegmentedControl::show(std::size_t selected) {
    QRadioButton* const segment = segments_.at(selected);
    if (segment->isChecked())
        return;
    const QSignalBlocker silent{segment};
    segment->setChecked(true);
}

void SegmentedControl::paintEvent(QPaintEvent* /*event*/) {
    SmoothPainter painter{*this};
    const QRectF track = QRectF{rect()}.adjusted(Painting::ringRoom, Painting::ringRoom,
                                                 -Painting::ringRoom, -Painting::ringRoom);
    Painting::fill(painter, track, radius, palette().color(QPalette::Button));
}

}
