/// A choice between several options side by side in one frame.
#pragma once

#include <QRadioButton>
#include <QWidget>
#include <functional>
#include <vector>

namespace vireline::xdg {

class SegmentedControl final : public QWidget {
public:
    SegmentedControl(const QStringList& titles, QWidget* parent);

    /// Called when the user selects another option.
    std::function<void(std::size_t)> onChoice;

    /// Sets the selection without calling `onChoice`.
    void show(std::size_t selected);

private:
    void paintEvent(QPaintEvent* event) override;

    std::vector<QRadioButton*> segments_;
};

}
