/// A row of the settings form: title, control, caption and status line.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/FormControl.hpp"
#include "ProgramWindows/StatusLineView.hpp"

#import <AppKit/AppKit.h>

#include <memory>

namespace vireline::macos {

class FormRowView {
public:
    /// `listener` must outlive the view.
    FormRowView(const FormRow& row, FormListener& listener);

    [[nodiscard]] NSView* _Nonnull view() const noexcept { return view_; }
    [[nodiscard]] SettingsField field() const noexcept { return field_; }

    /// Updates the row in place. Returns false if it needs a different control.
    [[nodiscard]] bool show(const FormRow& row);

    /// Lays the row out for this width and returns its height.
    double layOut(double width);

private:
    SettingsField field_;
    VirelineFlippedView* _Nonnull view_;
    NSTextField* _Nonnull title_;
    NSTextField* _Nonnull caption_;
    std::unique_ptr<FormControl> control_;
    StatusLineView status_;
    bool hasCaption_ = false;
    bool hasStatus_ = false;
};

}
