#include "ProgramWindows/Labels.hpp"

#include "Bridge/Conversions.hpp"

#include <cmath>

@implementation VirelineFlippedView

- (BOOL)isFlipped {
    return YES;
}

@end

namespace vireline::macos::Labels {

NSTextField* make(const std::string& text, NSFont* font, NSColor* color) {
    NSTextField* const label = [NSTextField wrappingLabelWithString:toNSString(text)];
    label.font = font;
    label.textColor = color;
    label.selectable = NO;
    return label;
}

NSFont* bodyFont() {
    return [NSFont systemFontOfSize:NSFont.systemFontSize];
}

NSFont* captionFont() {
    return [NSFont systemFontOfSize:NSFont.smallSystemFontSize];
}

Size fittingSize(NSTextField* label, double width) {
    constexpr double unbounded = 10'000;
    const NSSize size = [label sizeThatFits:NSSize{width, unbounded}];
    return {std::ceil(size.width), std::ceil(size.height)};
}

NSColor* color(StatusLine::Tone tone) {
    switch (tone) {
    case StatusLine::Tone::positive:
        return NSColor.systemGreenColor;
    case StatusLine::Tone::warning:
        return NSColor.systemOrangeColor;
    case StatusLine::Tone::neutral:
        break;
    }
    return NSColor.labelColor;
}

NSImageView* makeSymbol(const std::string& name, NSColor* color) {
    NSImageView* const view = [[NSImageView alloc] initWithFrame:NSRect{}];
    view.image = [NSImage imageWithSystemSymbolName:toNSString(name) accessibilityDescription:nil];
    view.contentTintColor = color;
    return view;
}

}
