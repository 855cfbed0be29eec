/// One row of a form: title and caption on the leading side, the control on the trailing side or
/// below, the status line under both. Created once and updated in place.
#pragma once

#include "Presentation/Form.hpp"

#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

namespace vireline {
class FormListener;
}

namespace vireline::xdg {

class StatusLineView;
class Switch;
class Symbols;

/// Shared by all rows of a form.
struct FormContext {
    FormListener& listener;
    const Symbols& symbols;
    /// Whether controls animate state changes.
    bool animates;
};

class FormRowView final : public QWidget {
public:
    FormRowView(const FormRow& row, const FormContext& context, QWidget* parent);

    [[nodiscard]] SettingsField field() const noexcept { return field_; }

    /// Updates the row. The field and the kind of control must be the same as before.
    void present(const FormRow& row);

private:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

    void arrange(const FormRow& row);
    void addToColumn(QWidget& widget) const;
    /// The control that goes beside the title; null if it goes below.
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
    /// Set only in rows that can be clicked as a whole.
    Switch* switch_ = nullptr;
    bool isHovered_ = false;
    std::function<void(const FormRow&)> update_;
};

}
