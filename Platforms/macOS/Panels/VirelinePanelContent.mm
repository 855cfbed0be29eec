#include "Panels/VirelinePanelContent.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/DropOperations.hpp"

#include <functional>
#include <string>
#include <utility>
#include <vector>

using vireline::macos::attempt;
using vireline::macos::attemptOr;
using vireline::macos::PanelInput;
using vireline::macos::toPoint;
using vireline::macos::toText;
namespace DropOperations = vireline::macos::DropOperations;

namespace {

constexpr NSTrackingAreaOptions entering =
    NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways | NSTrackingInVisibleRect;
constexpr NSTrackingAreaOptions moving =
    NSTrackingMouseMoved | NSTrackingActiveAlways | NSTrackingInVisibleRect;

static_assert(entering == 641);
static_assert(DropOperations::copy == NSDragOperationCopy);
static_assert(DropOperations::link == NSDragOperationLink);
static_assert(DropOperations::generic == NSDragOperationGeneric);

/// The file URLs in the pasteboard's order. File reference URLs are converted to path URLs.
std::vector<std::string> fileURLs(NSPasteboard* pasteboard) {
    std::vector<std::string> texts;
    NSArray* const urls = [pasteboard readObjectsForClasses:@[ NSURL.class ]
                                                    options:@{
                                                        NSPasteboardURLReadingFileURLsOnlyKey : @YES
                                                    }];
    for (id object in urls) {
        if (![object isKindOfClass:NSURL.class])
            continue;
        NSURL* const url = object;
        NSURL* const path = url.filePathURL;
        texts.push_back(toText(path == nil ? url.absoluteString : path.absoluteString));
    }
    return texts;
}

NSDragOperation operation(BOOL canDrop, id<NSDraggingInfo> drag) {
    return canDrop ? DropOperations::chosen(drag.draggingSourceOperationMask) : NSDragOperationNone;
}

}

@implementation VirelinePanelContent {
    std::weak_ptr<PanelInput> _input;
}

- (instancetype)initWithPanel:(NSPanel*)panel input:(std::weak_ptr<PanelInput>)input {
    self = [super initWithFrame:NSMakeRect(0, 0, panel.frame.size.width, panel.frame.size.height)];
    if (self == nil)
        return nil;
    _input = std::move(input);
    self.wantsLayer = YES;
    [self addTrackingArea:[[NSTrackingArea alloc] initWithRect:NSZeroRect
                                                       options:entering
                                                         owner:panel
                                                      userInfo:nil]];
    [self addTrackingArea:[[NSTrackingArea alloc] initWithRect:NSZeroRect
                                                       options:moving
                                                         owner:self
                                                      userInfo:nil]];
    [self registerForDraggedTypes:@[ NSPasteboardTypeFileURL ]];
    return self;
}

/// The first click works even while another program is active.
- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    return YES;
}

- (NSView*)hitTest:(NSPoint)point {
    return attemptOr<NSView*>(nil, "hitTest", [&]() -> NSView* {
        const auto input = _input.lock();
        const NSPoint at = [self convertPoint:point fromView:self.superview];
        const bool takes = input && NSMouseInRect(at, self.bounds, NO);
        return takes && input->takesPointer(toPoint(at)) ? self : nil;
    });
}

/// Calls `tell` with the input, if that still exists.
- (void)tell:(const char*)what to:(const std::function<void(PanelInput&)>&)tell {
    attempt(what, [&] {
        if (const auto input = _input.lock())
            tell(*input);
    });
}

- (void)mouseMoved:(NSEvent*)event {
    [self tell:"mouseMoved"
            to:[&](PanelInput& input) { input.pointerMoved(toPoint(event.locationInWindow)); }];
}

- (void)mouseDragged:(NSEvent*)event {
    [self mouseMoved:event];
}

- (void)mouseDown:(NSEvent*)event {
    [self tell:"mouseDown"
            to:[&](PanelInput& input) {
                const bool asksForMenu = (event.modifierFlags & NSEventModifierFlagControl) != 0;
                input.pressed(toPoint(event.locationInWindow), asksForMenu);
            }];
}

- (void)mouseUp:(NSEvent*)event {
    [self tell:"mouseUp"
            to:[&](PanelInput& input) {
                const NSPoint at = event.locationInWindow;
                input.released(toPoint(at), NSMouseInRect(at, self.bounds, NO), event.timestamp);
            }];
}

- (void)rightMouseDown:(NSEvent*)event {
    [self tell:"rightMouseDown"
            to:[&](PanelInput& input) { input.pressed(toPoint(event.locationInWindow), true); }];
}

- (NSDragOperation)draggingEntered:(id<NSDraggingInfo>)sender {
    return attemptOr(NSDragOperation{}, "draggingEntered", [&] {
        const auto input = _input.lock();
        const bool canDrop = input && input->dragEntered(fileURLs(sender.draggingPasteboard),
                                                         toPoint(sender.draggingLocation));
        return operation(canDrop, sender);
    });
}

- (NSDragOperation)draggingUpdated:(id<NSDraggingInfo>)sender {
    return attemptOr(NSDragOperation{}, "draggingUpdated", [&] {
        const auto input = _input.lock();
        const bool canDrop = input && input->dragMoved(toPoint(sender.draggingLocation));
        return operation(canDrop, sender);
    });
}

/// No updates are needed while a drag does not move.
- (BOOL)wantsPeriodicDraggingUpdates {
    return NO;
}

- (void)draggingExited:(id<NSDraggingInfo>)sender {
    if (const auto input = _input.lock())
        input->dragEnded();
}

- (void)draggingEnded:(id<NSDraggingInfo>)sender {
    [self draggingExited:sender];
}

- (BOOL)performDragOperation:(id<NSDraggingInfo>)sender {
    return attemptOr(false, "performDragOperation", [&] {
        const auto input = _input.lock();
        return input && input->dropped(toPoint(sender.draggingLocation));
    });
}

/// Delegates to the dock view, which has the tiles.
- (id)accessibilityHitTest:(NSPoint)point {
    return attemptOr<id>(nil, "accessibilityHitTest",
                         [&] { return [self.subviews.firstObject accessibilityHitTest:point]; });
}

@end
