/// One row of the settings form: a title, its control, and what explains it.
#pragma once

#include "Platform/ProgramWindows.hpp"
#include "ProgramWindows/FormControl.hpp"
#include "ProgramWindows/StatusLineView.hpp"

#import <AppKit/AppKit.h>

#include <memory>

namespace vireline::macos {

class FormRowView {
public:
    /// `listener` outlives the view.
    FormRowView(const FormRow& row, FormListener& listener);

    [[nodiscard]] NSView* _Nonnull view() const noexcept { return view_; }
    [[nodiscard]] SettingsField field() const noexcept { return field_; }

    /// Brings everything up to date in place; false when the row needs another control.
    [[nodiscard]] bool show(const FormRow& row);

    /// Puts its parts in place for this width and returns the height that it needs.
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
