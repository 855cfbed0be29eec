/// One row of a form: its title and caption on the leading side, its control on the trailing one or
/// below, its status line under both. Made once and updated in place.
#pragma once

#include "Presentation/Form.hpp"

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

namespace vireline {
class FormListener;
}

namespace vireline::x11 {

class StatusLineView;
class Switch;
class Symbols;

/// What all rows of a form share.
struct FormContext {
    FormListener& listener;
    const Symbols& symbols;
    /// Controls glide from one state to the next.
    bool animates;
};

class FormRowView final : public QWidget {
public:
    FormRowView(const FormRow& row, const FormContext& context, QWidget* parent);

    [[nodiscard]] SettingsField field() const noexcept { return field_; }

    /// A row of the same field, with a control of the same kind.
    void present(const FormRow& row);

private:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    void arrange(const FormRow& row);
    void addToColumn(QWidget& widget) const;
    /// The control that stands behind the title; null if it is below.
    QWidget* addControl(const RadioGroup& group);
    QWidget* addControl(const Segments& segments);
    QWidget* addControl(const Toggle& toggle);
    QWidget* addControl(const Slider& slider);
    void name(QWidget& control) const;
    void changed(const FormValue& value) const;

    SettingsField field_;
    FormContext context_;
    QLabel* title_;
    QVBoxLayout* column_ = nullptr;
    QLabel* caption_ = nullptr;
    StatusLineView* status_ = nullptr;
    /// Only in a row that can be clicked as a whole.
    Switch* switch_ = nullptr;
    bool isHovered_ = false;
    std::function<void(const FormRow&)> update_;
};

}
