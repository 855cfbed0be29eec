/// A push button: the main action's in the accent colour, the others plain.
#pragma once

#include <QPushButton>

namespace vireline::xdg {

class PushButton final : public QPushButton {
public:
    enum class Look { plain, prominent, compact };

    PushButton(const QString& title, Look look, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

private:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] bool hitButton(const QPoint& position) const override;

    Look look_;
};

}
