/// A slider in whole steps whose knob goes to where it is pressed. The wheel is left to the page
/// that it stands on.
#pragma once

#include <QSlider>

namespace vireline::x11 {

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

    /// Of the knob's centre, from the slider's left edge.
    [[nodiscard]] double knobPosition() const;
    [[nodiscard]] int valueAt(double x) const;
    [[nodiscard]] bool isReversed() const;
};

}
