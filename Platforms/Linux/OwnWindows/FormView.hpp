/// A whole form: sections of rows on cards, one below the other.
#pragma once

#include "Windows/Form.hpp"
#include "OwnWindows/FormRowView.hpp"

#include <QWidget>
#include <vector>

namespace vireline::x11 {

class FormSectionView;

class FormView final : public QWidget {
public:
    FormView(const FormContext& context, QWidget* parent);

    /// Rows that were there before stay the same widgets; rows that are gone are hidden until they
    /// come back.
    void present(const Form& form);

private:
    FormContext context_;
    std::vector<FormSectionView*> sections_;
};

}
