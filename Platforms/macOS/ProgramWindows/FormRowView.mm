#include "ProgramWindows/FormRowView.hpp"

#include "Bridge/Conversions.hpp"
#include "ProgramWindows/Labels.hpp"
#include "Translation/FormLayout.hpp"

namespace vireline::macos {

FormRowView::FormRowView(const FormRow& row, FormListener& listener)
    : field_(row.field)
    , view_([[VirelineFlippedView alloc] initWithFrame:NSRect{}])
    , title_(Labels::make(row.title, Labels::bodyFont(), NSColor.labelColor))
    , caption_(Labels::make(row.caption, Labels::captionFont(), NSColor.secondaryLabelColor))
    , control_(FormControl::make(row.control, row.title,
                                 [&listener, field = row.field](const FormValue& value) {
                                     listener.formChanged(field, value);
                                 }))
    , status_([&listener, field = row.field] { listener.formStatusButtonPressed(field); }) {
    [view_ addSubview:title_];
    [view_ addSubview:control_->view()];
    [view_ addSubview:caption_];
    [view_ addSubview:status_.view()];
    static_cast<void>(show(row));
}

bool FormRowView::show(const FormRow& row) {
    if (row.field != field_ || !control_->show(row.control))
        return false;
    title_.stringValue = toNSString(row.title);
    caption_.stringValue = toNSString(row.caption);
    hasCaption_ = !row.caption.empty();
    hasStatus_ = row.status.has_value();
    caption_.hidden = !hasCaption_;
    status_.view().hidden = !hasStatus_;
    if (row.status)
        status_.show(*row.status);
    return true;
}

double FormRowView::layOut(double width) {
    const Size control = control_->size();
    const double titleWidth = FormLayout::titleWidth(width, control);
    const auto frames = FormLayout::row(
        width, {.titleHeight = Labels::fittingSize(title_, titleWidth).height,
                .control = control,
                .captionHeight = hasCaption_ ? Labels::fittingSize(caption_, width).height : 0,
                .statusHeight = hasStatus_ ? status_.layOut(width) : 0});
    title_.frame = toCGRect(frames.title);
    control_->view().frame = toCGRect(frames.control);
    caption_.frame = toCGRect(frames.caption);
    status_.view().frame = toCGRect(frames.status);
    return frames.height;
}

}
