/// A whole form: sections of rows on cards, stacked vertically.
#pragma once

#include "Presentation/Form.hpp"
#include "ProgramWindows/Pages/FormRowView.hpp"

#include <QWidget>
#include <cstddef>
#include <optional>
#include <vector>

namespace vireline::xdg {

class FormSectionView;

class FormView final : public QWidget {
public:
    FormView(const FormContext& context, QWidget* parent);

    /// Reuses the widgets of rows that existed before; the widgets of removed rows are hidden until
    /// the rows return.
    void present(const Form& form);

    /// Identifies a control in a way that is also valid in another view of the same form.
    struct Place {
        SettingsField field = SettingsField::sourceMode;
        /// Index among the row's focusable controls.
        std::size_t index = 0;
    };
    /// The control with the focus; nullopt if it is not in this form.
    [[nodiscard]] std::optional<Place> focus() const;
    /// Does nothing if there is no such control.
    void setFocus(const Place& place);

private:
    FormContext context_;
    std::vector<FormSectionView*> sections_;
};

}
