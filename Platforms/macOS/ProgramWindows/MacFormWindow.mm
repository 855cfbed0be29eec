#include "ProgramWindows/MacFormWindow.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "ProgramWindows/Labels.hpp"
#include "Translation/FormLayout.hpp"

#include <algorithm>
#include <utility>

namespace vireline::macos {
namespace {

NSFont* headingFont() {
    return [NSFont systemFontOfSize:NSFont.systemFontSize weight:NSFontWeightSemibold];
}

NSBox* makeSeparator() {
    NSBox* const line = [[NSBox alloc] initWithFrame:NSRect{}];
    line.boxType = NSBoxSeparator;
    return line;
}

NSScrollView* scrolling(NSView* content, Size size) {
    NSScrollView* const view =
        [[NSScrollView alloc] initWithFrame:toCGRect({0, 0, size.width, size.height})];
    view.hasVerticalScroller = YES;
    view.autohidesScrollers = YES;
    view.drawsBackground = NO;
    view.documentView = content;
    return view;
}

/// Moves the row with this field out of `rows`; null if there is none.
std::unique_ptr<FormRowView> extractRow(std::vector<std::unique_ptr<FormRowView>>& rows,
                                        SettingsField field) {
    const auto found =
        std::ranges::find_if(rows, [&](const auto& row) { return row && row->field() == field; });
    return found == rows.end() ? nullptr : std::move(*found);
}

}

MacFormWindow::MacFormWindow(const WindowStyle& style, FormListener& listener,
                             std::shared_ptr<FocusReturn> focus)
    : listener_(listener)
    , width_(style.contentSize.width)
    , leastHeight_(style.contentSize.height)
    , window_(style, std::move(focus)) {
    attempt("settings window", [&] {
        content_ =
            [[VirelineFlippedView alloc] initWithFrame:NSRect{{}, toCGSize(style.contentSize)}];
        window_.setContent(scrolling(content_, style.contentSize));
    });
}

void MacFormWindow::present(const Form& form) {
    attempt("settings form", [&] {
        while (sections_.size() > form.sections.size()) {
            [sections_.back().title removeFromSuperview];
            [sections_.back().box removeFromSuperview];
            sections_.pop_back();
        }
        while (sections_.size() < form.sections.size())
            sections_.push_back(makeSection());
        for (std::size_t index = 0; index < sections_.size(); ++index)
            show(sections_.at(index), form.sections.at(index));
        layOut();
    });
}

MacFormWindow::SectionView MacFormWindow::makeSection() {
    SectionView section{Labels::make("", headingFont(), NSColor.labelColor),
                        [[NSBox alloc] initWithFrame:NSRect{}],
                        [[VirelineFlippedView alloc] initWithFrame:NSRect{}],
                        {},
                        {}};
    section.box.titlePosition = NSNoTitle;
    section.box.contentViewMargins = NSSize{};
    section.box.contentView = section.content;
    [content_ addSubview:section.title];
    [content_ addSubview:section.box];
    return section;
}

void MacFormWindow::show(SectionView& view, const FormSection& section) {
    view.title.stringValue = toNSString(section.title);
    std::vector<std::unique_ptr<FormRowView>> rows;
    for (const FormRow& row : section.rows) {
        auto shown = extractRow(view.rows, row.field);
        if (shown && !shown->show(row)) {
            [shown->view() removeFromSuperview];
            shown = nullptr;
        }
        if (!shown) {
            shown = std::make_unique<FormRowView>(row, listener_);
            [view.content addSubview:shown->view()];
        }
        rows.push_back(std::move(shown));
    }
    for (const auto& gone : view.rows) {
        if (gone)
            [gone->view() removeFromSuperview];
    }
    view.rows = std::move(rows);
}

void MacFormWindow::layOut() {
    double bottom = FormLayout::margin;
    for (SectionView& section : sections_)
        bottom = layOut(section, bottom) + FormLayout::sectionGap;
    const double height = bottom - FormLayout::sectionGap + FormLayout::margin;
    content_.frame = toCGRect({0, 0, width_, std::max(height, leastHeight_)});
}

double MacFormWindow::layOut(SectionView& view, double top) {
    const double rowWidth = FormLayout::rowWidth(width_);
    std::vector<double> heights;
    heights.reserve(view.rows.size());
    for (const auto& row : view.rows)
        heights.push_back(row->layOut(rowWidth));
    const double titleHeight = Labels::fittingSize(view.title, rowWidth).height;
    const auto frames = FormLayout::section(width_, top, titleHeight, heights);
    view.title.frame = toCGRect(frames.title);
    // The layout does not include the box's border, whose width only the system knows.
    [view.box setFrameFromContentFrame:toCGRect(frames.box)];
    for (std::size_t index = 0; index < view.rows.size(); ++index)
        view.rows.at(index)->view().frame = toCGRect(
            {FormLayout::boxPadding, frames.rowTops.at(index), rowWidth, heights.at(index)});
    while (view.separators.size() > frames.separators.size()) {
        [view.separators.back() removeFromSuperview];
        view.separators.pop_back();
    }
    while (view.separators.size() < frames.separators.size()) {
        view.separators.push_back(makeSeparator());
        [view.content addSubview:view.separators.back()];
    }
    for (std::size_t index = 0; index < view.separators.size(); ++index)
        view.separators.at(index).frame = toCGRect(frames.separators.at(index));
    return frames.bottom;
}

}
