#include "Panels/VirelinePanel.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#include <utility>

using vireline::macos::attempt;
using vireline::macos::PanelInput;
using vireline::macos::toPoint;

namespace {

constexpr NSWindowCollectionBehavior onEveryDesktop = NSWindowCollectionBehaviorCanJoinAllSpaces |
                                                      NSWindowCollectionBehaviorStationary |
                                                      NSWindowCollectionBehaviorFullScreenAuxiliary;

static_assert(NSWindowStyleMaskNonactivatingPanel == 128);
static_assert(onEveryDesktop == 273);

}

@implementation VirelinePanel {
    std::weak_ptr<PanelInput> _input;
}

- (instancetype)initWithFrame:(NSRect)frame input:(std::weak_ptr<PanelInput>)input {
    self = [super initWithContentRect:frame
                            styleMask:NSWindowStyleMaskNonactivatingPanel
                              backing:NSBackingStoreBuffered
                                defer:NO];
    if (self == nil)
        return nil;
    self.releasedWhenClosed = NO;
    _input = std::move(input);
    self.level = NSFloatingWindowLevel;
    self.collectionBehavior = onEveryDesktop;
    self.floatingPanel = YES;
    self.becomesKeyOnlyIfNeeded = YES;
    self.hidesOnDeactivate = NO;
    // Stay visible too when the user hides all other programs.
    self.canHide = NO;
    self.opaque = NO;
    self.backgroundColor = NSColor.clearColor;
    self.movable = NO;
    // AppKit would not update the shadow when icons grow.
    self.hasShadow = NO;
    return self;
}

- (BOOL)canBecomeKeyWindow {
    return NO;
}

- (BOOL)canBecomeMainWindow {
    return NO;
}

/// AppKit must not move the dock.
- (NSRect)constrainFrameRect:(NSRect)frameRect toScreen:(NSScreen*)screen {
    return frameRect;
}

- (BOOL)isUnderPointer {
    const NSPoint at = NSEvent.mouseLocation;
    return self.visible && NSMouseInRect(at, self.frame, NO) && ![self isCoveredAt:at];
}

/// Windows that are transparent at the point do not count, this one included.
- (BOOL)isCoveredAt:(NSPoint)point {
    const NSInteger front = [NSWindow windowNumberAtPoint:point belowWindowWithWindowNumber:0];
    const NSInteger behind = [NSWindow windowNumberAtPoint:point
                               belowWindowWithWindowNumber:self.windowNumber];
    return front != self.windowNumber && front != behind;
}

- (void)mouseEntered:(NSEvent*)event {
    attempt("mouseEntered", [&] {
        if (const auto input = _input.lock())
            input->pointerEntered(toPoint(event.locationInWindow),
                                  NSEvent.pressedMouseButtons != 0);
    });
}

- (void)mouseExited:(NSEvent*)event {
    attempt("mouseExited", [&] {
        if (const auto input = _input.lock())
            input->pointerLeft((NSEvent.pressedMouseButtons & 1) != 0);
    });
}

@end
