/// A switch: a check box that looks like one.
#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

namespace vireline::x11 {

class Switch final : public QCheckBox {
public:
    /// Glides from one state to the other, if it `animates`.
    Switch(bool animates, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// Takes the state over without telling anybody, at once while nobody sees it.
    void show(bool isOn);

private:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void glide(bool isOn);

    bool animates_;
    /// From 0, off, to 1, on.
    double knob_ = 0;
    QVariantAnimation motion_;
};

}
