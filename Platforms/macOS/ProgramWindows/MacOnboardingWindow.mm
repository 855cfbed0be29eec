#include "ProgramWindows/MacOnboardingWindow.hpp"

#include "Bridge/ActionTarget.hpp"
#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/FormLayout.hpp"
#include "Translation/PageLayout.hpp"

#include <algorithm>
#include <utility>

namespace vireline::macos {
namespace {

NSFont* titleFont() {
    constexpr double titleSize = 26;
    return [NSFont systemFontOfSize:titleSize weight:NSFontWeightBold];
}

NSView* makeDot(bool isCurrent) {
    NSBox* const dot = [[NSBox alloc] initWithFrame:NSRect{}];
    dot.boxType = NSBoxCustom;
    dot.borderWidth = 0;
    dot.cornerRadius = PageLayout::dotDiameter / 2;
    dot.fillColor = isCurrent ? NSColor.controlAccentColor
                              : [NSColor.secondaryLabelColor
                                    colorWithAlphaComponent:PageLayout::otherDotsOpacity];
    return dot;
}

}

MacOnboardingWindow::MacOnboardingWindow(const WindowStyle& style, OnboardingListener& listener,
                                         std::shared_ptr<FocusReturn> focus)
    : listener_(listener), size_(style.contentSize), window_(style, std::move(focus)) {
    attempt("tour window", [this] {
        content_ = [[VirelineFlippedView alloc] initWithFrame:NSRect{{}, toCGSize(size_)}];
        status_ = std::make_unique<StatusLineView>([] {});
        window_.setContent(content_);
    });
}

void MacOnboardingWindow::present(const OnboardingPage& page) {
    // Rebuilding the same page would lose the keyboard focus.
    if (shown_ == page)
        return;
    shown_ = page;
    attempt("welcome tour", [&] { build(page); });
}

void MacOnboardingWindow::build(const OnboardingPage& page) {
    content_.subviews = @[];
    targets_.clear();
    double top = PageLayout::padding;
    top = addText(page.title, titleFont(), NSColor.labelColor, top);
    if (!page.text.empty())
        top = addText(page.text, Labels::bodyFont(), NSColor.secondaryLabelColor, top);
    for (const FeatureRow& row : page.rows)
        top = addRow(row, top);
    if (page.permission)
        addPermission(*page.permission, top);
    addDots(page);
    addButtons(page.buttons);
}

double MacOnboardingWindow::addText(const std::string& text, NSFont* font, NSColor* color,
                                    double top) {
    NSTextField* const label = Labels::make(text, font, color);
    const double width = PageLayout::width(size_);
    const double height = Labels::fittingSize(label, width).height;
    label.frame = toCGRect({PageLayout::padding, top, width, height});
    [content_ addSubview:label];
    return top + height + PageLayout::paragraphGap;
}

double MacOnboardingWindow::addRow(const FeatureRow& row, double top) {
    NSTextField* const label = Labels::make(row.text, Labels::bodyFont(), NSColor.labelColor);
    NSImageView* const symbol = Labels::makeSymbol(row.symbol, NSColor.controlAccentColor);
    const auto frames = PageLayout::featureRow(
        size_, top, Labels::fittingSize(label, PageLayout::featureTextWidth(size_)).height);
    symbol.frame = toCGRect(frames.symbol);
    label.frame = toCGRect(frames.text);
    [content_ addSubview:symbol];
    [content_ addSubview:label];
    return frames.bottom + PageLayout::rowGap;
}

void MacOnboardingWindow::addPermission(const PermissionBlock& block, double top) {
    if (block.line && status_) {
        status_->show(*block.line);
        const double width = PageLayout::width(size_);
        status_->view().frame = toCGRect({PageLayout::padding, top, width, status_->layOut(width)});
        [content_ addSubview:status_->view()];
        top = toRect(status_->view().frame).maxY() + PageLayout::rowGap;
    }
    if (block.button) {
        NSButton* const button = makeButton(*block.button);
        const Size size = toSize(button.fittingSize);
        button.frame = toCGRect({PageLayout::padding, top, size.width, size.height});
        [content_ addSubview:button];
        top += size.height + FormLayout::captionGap;
    }
    if (!block.caption.empty())
        addText(block.caption, Labels::captionFont(), NSColor.secondaryLabelColor, top);
}

void MacOnboardingWindow::addDots(const OnboardingPage& page) {
    const auto frames = PageLayout::dots(size_, page.pageCount);
    for (std::size_t index = 0; index < frames.size(); ++index) {
        NSView* const dot = makeDot(static_cast<int>(index) == page.index);
        dot.frame = toCGRect(frames.at(index));
        [content_ addSubview:dot];
    }
}

void MacOnboardingWindow::addButtons(const std::vector<OnboardingButton>& buttons) {
    std::vector<NSButton*> made;
    std::vector<Size> sizes;
    for (const OnboardingButton& button : buttons) {
        made.push_back(makeButton(button));
        sizes.push_back(toSize(made.back().fittingSize));
    }
    if (made.empty())
        return;
    // Return presses the last button.
    made.back().keyEquivalent = @"\r";
    const auto frames = PageLayout::buttons(size_, sizes);
    for (std::size_t index = 0; index < made.size(); ++index) {
        made.at(index).frame = toCGRect(frames.at(index));
        [content_ addSubview:made.at(index)];
    }
}

NSButton* MacOnboardingWindow::makeButton(const OnboardingButton& button) {
    VirelineActionTarget* const target = [[VirelineActionTarget alloc]
        initWithFunction:[this, action = button.action] { listener_.onboardingActed(action); }];
    targets_.push_back(target);
    return [NSButton buttonWithTitle:toNSString(button.title) target:target action:@selector(act:)];
}

}
