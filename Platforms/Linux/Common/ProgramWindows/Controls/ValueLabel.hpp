/// A number with tabular figures, aligned to the trailing end of its box.
#pragma once

#include <QWidget>

namespace vireline::xdg {

class ValueLabel final : public QWidget {
public:
    ValueLabel(int width, QWidget* parent);

    void setText(const QString& text);
    [[nodiscard]] const QString& text() const noexcept { return text_; }

private:
    void paintEvent(QPaintEvent* event) override;
    [[nodiscard]] int digitWidth() const;

    QString text_;
};

}
