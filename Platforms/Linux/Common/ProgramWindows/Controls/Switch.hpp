/// A check box that looks like a switch.
#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

namespace vireline::xdg {

class Switch final : public QCheckBox {
public:
    /// `animates` makes the knob slide from one state to the other.
    Switch(bool animates, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// Sets the state without notifying observers; without animation while it is not visible.
    void show(bool isOn);

private:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void glide(bool isOn);

    bool animates_;
    /// Position of the knob, from 0 (off) to 1 (on).
    double knob_ = 0;
    QVariantAnimation motion_;
};

}
