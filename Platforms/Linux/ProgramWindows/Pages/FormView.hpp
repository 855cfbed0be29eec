/// A whole form: sections of rows on cards, one below the other.
#pragma once

#include "Presentation/Form.hpp"
#include "ProgramWindows/Pages/FormRowView.hpp"

#include <QWidget>
#include <cstddef>
#include <optional>
#include <vector>

namespace vireline::x11 {

class FormSectionView;

class FormView final : public QWidget {
public:
    FormView(const FormContext& context, QWidget* parent);

    /// Rows that were there before stay the same widgets; rows that are gone are hidden until they
    /// come back.
    void present(const Form& form);

    /// A control by its place, which says the same in another view of the form.
    struct Place {
        SettingsField field = SettingsField::sourceMode;
        /// Among the row's controls that take the focus.
        std::size_t index = 0;
    };
    /// The control with the focus; nothing if it is none of the form's.
    [[nodiscard]] std::optional<Place> focus() const;
    /// Does nothing if there is no such control.
    void setFocus(const Place& place);

private:
    FormContext context_;
    std::vector<FormSectionView*> sections_;
};

}
