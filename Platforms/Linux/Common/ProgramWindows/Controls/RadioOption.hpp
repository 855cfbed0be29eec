/// One of several options that are stacked vertically.
#pragma once

#include <QRadioButton>

namespace vireline::xdg {

class RadioOption final : public QRadioButton {
public:
    RadioOption(const QString& title, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
};

}
