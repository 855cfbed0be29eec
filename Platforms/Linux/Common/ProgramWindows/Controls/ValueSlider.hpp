/// A slider with whole steps whose knob jumps to where the mouse is pressed. Ignores the wheel,
/// which scrolls the page instead.
#pragma once

#include <QSlider>

namespace vireline::xdg {

class ValueSlider final : public QSlider {
public:
    explicit ValueSlider(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    /// The knob's centre, measured from the slider's left edge.
    [[nodiscard]] double knobPosition() const;
    [[nodiscard]] int valueAt(double x) const;
    [[nodiscard]] bool isReversed() const;
};

}
