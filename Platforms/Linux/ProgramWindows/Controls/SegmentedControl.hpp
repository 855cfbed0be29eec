/// One option of several that stand side by side in one frame.
#pragma once

#include <QRadioButton>
#include <QWidget>
#include <functional>
#include <vector>

namespace vireline::x11 {

class SegmentedControl final : public QWidget {
public:
    SegmentedControl(const QStringList& titles, QWidget* parent);

    /// The user chose another option.
    std::function<void(std::size_t)> onChoice;

    /// Takes the choice over without telling anybody.
    void show(std::size_t selected);

private:
    void paintEvent(QPaintEvent* event) override;

    std::vector<QRadioButton*> segments_;
};

}
