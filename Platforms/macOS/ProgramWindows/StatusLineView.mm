#include "ProgramWindows/StatusLineView.hpp"

#include "Bridge/Conversions.hpp"
#include "Translation/FormLayout.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace vireline::macos {
namespace {

constexpr double symbolSide = 16;

}

StatusLineView::StatusLineView(std::function<void()> onButton)
    : view_([[VirelineFlippedView alloc] initWithFrame:NSRect{}])
    , target_([[VirelineActionTarget alloc] initWithFunction:std::move(onButton)]) {}

void StatusLineView::show(const StatusLine& line) {
    if (text_ != nil && line == shown_)
        return;
    shown_ = line;
    view_.subviews = @[];
    symbol_ = nil;
    button_ = nil;
    if (!line.symbol.empty()) {
        NSImageView* const symbol = Labels::makeSymbol(line.symbol, Labels::color(line.symbolTone));
        [view_ addSubview:symbol];
        symbol_ = symbol;
    }
    NSTextField* const text =
        Labels::make(line.text, Labels::bodyFont(), Labels::color(line.textTone));
    [view_ addSubview:text];
    text_ = text;
    if (!line.button.empty()) {
        NSButton* const button = [NSButton buttonWithTitle:toNSString(line.button)
                                                    target:target_
                                                    action:@selector(act:)];
        button.controlSize = NSControlSizeSmall;
        button.font = Labels::captionFont();
        [view_ addSubview:button];
        button_ = button;
    }
}

double StatusLineView::layOut(double width) {
    const Size symbol = symbol_ == nil ? Size{} : Size{symbolSide, symbolSide};
    const Size button = button_ == nil ? Size{} : toSize(button_.fittingSize);
    const double taken = (symbol_ == nil ? 0 : symbol.width + FormLayout::gap) +
                         (button_ == nil ? 0 : button.width + FormLayout::gap);
    NSTextField* const label = text_;
    const Size text = label == nil ? Size{} : Labels::fittingSize(label, width - taken);

    std::vector<NSView*> views;
    std::vector<Size> sizes;
    const auto add = [&](NSView* view, Size size) {
        if (view == nil)
            return;
        views.push_back(view);
        sizes.push_back(size);
    };
    add(symbol_, symbol);
    add(text_, text);
    add(button_, button);
    const double height = std::max({symbol.height, text.height, button.height});
    const auto frames = FormLayout::line({}, height, sizes, FormLayout::gap);
    for (std::size_t i = 0; i < views.size(); ++i)
        views.at(i).frame = toCGRect(frames.at(i));
    return height;
}

}
