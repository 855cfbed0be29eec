// Controls and their accessibility. They send their actions when a test uses them.
#include "Cocoa/Paper.hpp"

#include <algorithm>
#include <cmath>

NSAccessibilityRole const NSAccessibilityButtonRole = @"AXButton";
NSAccessibilityRole const NSAccessibilityGroupRole = @"AXGroup";
NSAccessibilityNotificationName const NSAccessibilityLayoutChangedNotification = @"AXLayoutChanged";
NSAccessibilityNotificationName const NSAccessibilityValueChangedNotification = @"AXValueChanged";

void NSAccessibilityPostNotification(id element, NSAccessibilityNotificationName name) {
    paper::requests().push_back("tell " + [[element description] paperText] + " " + name.paperText);
}

NSRect NSAccessibilityFrameInView(NSView* view, NSRect frame) {
    const NSPoint one = [view paperPointInWindow:frame.origin];
    const NSPoint other = [view
        paperPointInWindow:{frame.origin.x + frame.size.width, frame.origin.y + frame.size.height}];
    const NSPoint window = view.window.frame.origin;
    return {{std::min(one.x, other.x) + window.x, std::min(one.y, other.y) + window.y}, frame.size};
}

// Documented: the accessors of an element that is not a view; subclasses override them.
@implementation NSAccessibilityElement
@synthesize accessibilityElement, accessibilityRole, accessibilityLabel, accessibilityTitle,
    accessibilityValue, accessibilityFrame, accessibilityParent, accessibilityChildren;

- (id)accessibilityHitTest:(NSPoint)point {
    static_cast<void>(point);
    return self;
}

- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector {
    static_cast<void>(selector);
    return YES;
}

- (BOOL)accessibilityPerformPress {
    return NO;
}

- (BOOL)accessibilityPerformShowMenu {
    return NO;
}

@end

// Documented: the target is not retained. Belief: text is 0.55 of its font size wide per byte.
@implementation NSControl

- (NSSize)intrinsicContentSize {
    const double size = self.font == nil ? NSFont.systemFontSize : self.font.paperSize;
    const std::size_t length = self.stringValue == nil ? 0 : self.stringValue.paperText.size();
    return {std::ceil(0.55 * size * static_cast<double>(length)), std::ceil(1.25 * size)};
}

- (NSSize)sizeThatFits:(NSSize)size {
    static_cast<void>(size);
    return self.intrinsicContentSize;
}

- (void)paperAct {
    paper::guarded("action", [&] {
        if (self.target != nil && self.action != nullptr)
            paper::send(self.target, self.action, self);
    });
    paper::drain();
}

@end

// Documented: labelWithString: makes a single line, wrappingLabelWithString: wraps to the width.
// Belief: it fills lines to their ends, wherever words begin.
@implementation NSTextField

static id label(Class made, NSString* text) {
    NSTextField* const field = [[made alloc] initWithFrame:NSZeroRect];
    field.stringValue = text;
    return field;
}

+ (instancetype)labelWithString:(NSString*)text {
    return label(self, text);
}

+ (instancetype)wrappingLabelWithString:(NSString*)text {
    NSTextField* const field = label(self, text);
    field.paperWraps = YES;
    return field;
}

- (NSSize)sizeThatFits:(NSSize)size {
    const NSSize line = self.intrinsicContentSize;
    if (!self.paperWraps || line.width <= size.width || size.width <= 0)
        return line;
    return {size.width, std::ceil(line.width / size.width) * line.height};
}

@end

// Documented: radio buttons with the same action in one view form a group, of which one is on. Not
// implemented, because the program updates all of them after each choice.
@implementation NSButton

static id button(Class made, NSString* title, id target, SEL action) {
    NSButton* const button = [[made alloc] initWithFrame:NSZeroRect];
    button.paperTitle = title;
    button.stringValue = title;
    button.target = target;
    button.action = action;
    return button;
}

+ (instancetype)buttonWithTitle:(NSString*)title target:(id)target action:(SEL)action {
    return button(self, title, target, action);
}

+ (instancetype)radioButtonWithTitle:(NSString*)title target:(id)target action:(SEL)action {
    return button(self, title, target, action);
}

@end

// Documented: shows the item's image in the menu bar, and the item's menu when it is clicked.
// Belief: a template image is legible on every menu bar.
@implementation NSStatusBarButton
@end

// Documented: is on or off, and acts when the user changes that. Belief: setting its state does not
// make it act.
@implementation NSSwitch
@end

// Belief: a slider keeps the value it was dragged to until it is set to another.
@implementation NSSlider

+ (instancetype)sliderWithValue:(double)value
                       minValue:(double)minimum
                       maxValue:(double)maximum
                         target:(id)target
                         action:(SEL)action {
    NSSlider* const slider = [[self alloc] initWithFrame:NSZeroRect];
    slider.minValue = minimum;
    slider.maxValue = maximum;
    slider.doubleValue = value;
    slider.target = target;
    slider.action = action;
    return slider;
}

@end

// Documented: selectedSegment is -1 while none is selected.
@implementation NSSegmentedControl

+ (instancetype)segmentedControlWithLabels:(NSArray*)labels
                              trackingMode:(NSSegmentSwitchTracking)mode
                                    target:(id)target
                                    action:(SEL)action {
    static_cast<void>(mode);
    NSSegmentedControl* const control = [[self alloc] initWithFrame:NSZeroRect];
    control.paperLabels = labels;
    control.target = target;
    control.action = action;
    return control;
}

@end
