// The pointer and its buttons: which window and view receive events, tracking areas, and file
// drags.
#include "Cocoa/Paper.hpp"

#include <algorithm>
#include <utility>

NSPasteboardType const NSPasteboardTypeFileURL = @"public.file-url";
NSPasteboardReadingOptionKey const NSPasteboardURLReadingFileURLsOnlyKey =
    @"NSPasteboardURLReadingFileURLsOnlyKey";

// What a destination is told of a drag. Documented: the location is in the coordinates of the
// destination's window, the mask what the source allows. Belief: the mask is narrowed by the
// modifier keys that are held before the destination sees it.
@interface PaperDrag : NSObject <NSDraggingInfo>
@property(readwrite) NSDragOperation draggingSourceOperationMask;
@property(readwrite) NSPoint draggingLocation;
@property(readwrite, strong) NSPasteboard* draggingPasteboard;
@end

@implementation PaperDrag
@end

// Documented: objects of the requested classes, in order. Belief: if only file URLs are requested,
// a drag from another program yields them as file:// URLs.
@implementation NSPasteboard

- (NSArray*)readObjectsForClasses:(NSArray*)classes options:(NSDictionary*)options {
    static_cast<void>(classes);
    static_cast<void>(options);
    return self.paperURLs;
}

@end

namespace {

// Documented in NSEvent.h.
constexpr auto leftMouseUp = static_cast<NSEventType>(2);
constexpr auto rightMouseDown = static_cast<NSEventType>(3);
constexpr auto mouseMoved = static_cast<NSEventType>(5);
constexpr auto mouseEntered = static_cast<NSEventType>(8);
constexpr auto mouseExited = static_cast<NSEventType>(9);

struct PointerState {
    NSPoint at{-10000, -10000};
    NSUInteger buttons = 0;
    /// Receives the drags and the release that belong to a press.
    NSView* pressed = nil;
    PaperDrag* drag = nil;
    NSView* destination = nil;
    NSDragOperation offered = NSDragOperationNone;
    double delay = 0;
};

PointerState& pointer() {
    static auto& only = *new PointerState;
    return only;
}

NSEvent* makeEvent(NSEventType type, NSWindow* window, NSEventModifierFlags modifiers = 0) {
    NSEvent* const event = [[NSEvent alloc] init];
    event.type = type;
    event.modifierFlags = modifiers;
    event.timestamp = paper::now() - pointer().delay;
    event.locationInWindow = [window convertPointFromScreen:pointer().at];
    return event;
}

/// Calls `body` with the event as the application's current one.
void deliver(const std::string& what, NSEvent* event, const std::function<void()>& body) {
    NSApplication.sharedApplication.currentEvent = event;
    paper::guarded(what, body);
}

NSView* viewAt(NSWindow* window) {
    NSView* hit = nil;
    paper::guarded("hitTest", [&] {
        hit = [window.contentView hitTest:[window convertPointFromScreen:pointer().at]];
    });
    return hit;
}

NSWindow* frontWindow() {
    if (paper::isCovered(pointer().at))
        return nil;
    const auto& order = paper::orderedWindows();
    const auto found = std::ranges::find_if(
        order, [](NSWindow* window) { return NSMouseInRect(pointer().at, window.frame, NO); });
    return found == order.end() ? nil : *found;
}

/// Belief: the server passes clicks through a window that is not opaque wherever it has no pixels;
/// here, wherever its views accept none.
std::pair<NSWindow*, NSView*> target() {
    for (NSWindow* const window : paper::orderedWindows()) {
        if (paper::isCovered(pointer().at) || !NSMouseInRect(pointer().at, window.frame, NO))
            continue;
        NSView* const view = viewAt(window);
        if (view != nil || window.opaque)
            return {window, view};
    }
    return {nil, nil};
}

/// Documented: mouseEntered and mouseExited once each, mouseMoved only while no button is held.
/// Belief: while a button is held, areas are exited but not entered.
void track(NSView* view, NSWindow* window, bool isHere) {
    for (NSTrackingArea* area in [view paperTrackingAreas]) {
        const id owner = area.paperOwner;
        const bool hears = (area.paperOptions & NSTrackingMouseEnteredAndExited) != 0;
        const bool wasInside = area.paperIsInside;
        const bool enters = isHere && !wasInside && pointer().buttons == 0;
        area.paperIsInside = (isHere && wasInside) || enters;
        if (hears && enters)
            deliver("mouseEntered", makeEvent(mouseEntered, window),
                    [&] { [owner mouseEntered:NSApplication.sharedApplication.currentEvent]; });
        if (hears && wasInside && !isHere)
            deliver("mouseExited", makeEvent(mouseExited, window),
                    [&] { [owner mouseExited:NSApplication.sharedApplication.currentEvent]; });
        if ((area.paperOptions & NSTrackingMouseMoved) != 0 && isHere && pointer().buttons == 0)
            deliver("mouseMoved", makeEvent(mouseMoved, window),
                    [&] { [owner mouseMoved:NSApplication.sharedApplication.currentEvent]; });
    }
    for (NSView* child in view.subviews)
        track(child, window, isHere);
}

void trackAll() {
    NSWindow* const front = frontWindow();
    const auto windows = paper::orderedWindows();
    // All exits come before the entries.
    for (NSWindow* const window : windows)
        if (window != front)
            track(window.contentView, window, false);
    if (front != nil)
        track(front.contentView, front, true);
}

NSView* dragDestination() {
    NSView* view = target().second;
    while (view != nil && [view paperDraggedTypes] == nil)
        view = [view paperSuperview];
    return view;
}

id<NSDraggingDestination> asDestination(NSView* view) {
    return static_cast<id<NSDraggingDestination>>(static_cast<id>(view));
}

void moveDrag() {
    PointerState& state = pointer();
    NSView* const below = dragDestination();
    if (below != state.destination && state.destination != nil)
        paper::guarded("draggingExited",
                       [&] { [asDestination(state.destination) draggingExited:state.drag]; });
    const bool isNew = below != state.destination;
    state.destination = below;
    state.offered = NSDragOperationNone;
    if (below == nil)
        return;
    state.drag.draggingLocation = [below.window convertPointFromScreen:state.at];
    paper::guarded("dragging", [&] {
        state.offered = isNew ? [asDestination(below) draggingEntered:state.drag]
                              : [asDestination(below) draggingUpdated:state.drag];
    });
}

}

// Documented: the location is in the window's coordinates, from its bottom-left corner; the time is
// in seconds since the system started, like its uptime.
@implementation NSEvent

+ (NSTimeInterval)doubleClickInterval {
    return 0.5;
}

+ (NSPoint)mouseLocation {
    return pointer().at;
}

+ (NSUInteger)pressedMouseButtons {
    return pointer().buttons;
}

+ (id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                   handler:(NSEvent* (^)(NSEvent*))handler {
    static_cast<void>(mask);
    static_cast<void>(handler);
    const id monitor = [[NSObject alloc] init];
    paper::eventMonitors().push_back(monitor);
    return monitor;
}

+ (void)removeMonitor:(id)monitor {
    std::erase(paper::eventMonitors(), monitor);
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

namespace paper {

std::vector<id>& eventMonitors() {
    static auto& all = *new std::vector<id>;
    return all;
}

NSUInteger pressedButtons() {
    return pointer().buttons;
}

void movePointer(NSPoint to) {
    @autoreleasepool {
        const double height = screens().empty() ? 0 : screens().front().frame.size.height;
        const CGPoint held = throughTaps({to.x, height - to.y}, pointer().buttons != 0);
        pointer().at = {held.x, height - held.y};
        if (pointer().drag != nil) {
            moveDrag();
        } else {
            trackAll();
            if (NSView* const view = pointer().pressed; view != nil)
                deliver("mouseDragged", makeEvent(NSEventTypeLeftMouseDragged, view.window),
                        [&] { [view mouseDragged:NSApplication.sharedApplication.currentEvent]; });
        }
        drain();
    }
}

void press(bool control) {
    @autoreleasepool {
        const auto [window, view] = target();
        pointer().buttons = 1;
        pointer().pressed = view;
        if (view != nil)
            deliver("mouseDown",
                    makeEvent(NSEventTypeLeftMouseDown, window,
                              control ? NSEventModifierFlagControl : 0),
                    [&] { [view mouseDown:NSApplication.sharedApplication.currentEvent]; });
        drain();
    }
}

void release() {
    @autoreleasepool {
        pointer().buttons = 0;
        NSView* const view = std::exchange(pointer().pressed, nil);
        if (view != nil)
            deliver("mouseUp", makeEvent(leftMouseUp, view.window),
                    [&] { [view mouseUp:NSApplication.sharedApplication.currentEvent]; });
        trackAll();
        drain();
    }
}

void loseRelease() {
    pointer().buttons = 0;
    pointer().pressed = nil;
}

void rightPress() {
    @autoreleasepool {
        const auto [window, view] = target();
        if (view != nil)
            deliver("rightMouseDown", makeEvent(rightMouseDown, window),
                    [&] { [view rightMouseDown:NSApplication.sharedApplication.currentEvent]; });
        drain();
    }
}

void dragSlider(NSSlider* slider, double value) {
    pointer().buttons = 1;
    NSApplication.sharedApplication.currentEvent =
        makeEvent(NSEventTypeLeftMouseDragged, slider.window);
    slider.doubleValue = value;
    [slider paperAct];
    pointer().buttons = 0;
    NSApplication.sharedApplication.currentEvent = makeEvent(leftMouseUp, slider.window);
    [slider paperAct];
}

void click(NSPoint at, bool control) {
    movePointer(at);
    press(control);
    release();
}

void clickEarlier(NSPoint at, double seconds) {
    pointer().delay = seconds;
    click(at);
    pointer().delay = 0;
}

void beginFileDrag(const std::vector<std::string>& paths, NSDragOperation allowed) {
    NSMutableArray* const urls = [NSMutableArray array];
    for (const std::string& path : paths)
        [urls addObject:[NSURL fileURLWithPath:text(path)]];
    PaperDrag* const drag = [[PaperDrag alloc] init];
    drag.draggingPasteboard = [[NSPasteboard alloc] init];
    drag.draggingPasteboard.paperURLs = urls;
    drag.draggingSourceOperationMask = allowed;
    pointer().drag = drag;
    pointer().buttons = 1;
}

bool dropFiles() {
    @autoreleasepool {
        PointerState& state = pointer();
        PaperDrag* const drag = std::exchange(state.drag, nil);
        NSView* const view = std::exchange(state.destination, nil);
        state.buttons = 0;
        bool isTaken = false;
        if (view != nil && state.offered != NSDragOperationNone)
            guarded("performDragOperation",
                    [&] { isTaken = [asDestination(view) performDragOperation:drag]; });
        else if (view != nil)
            guarded("draggingExited", [&] { [asDestination(view) draggingExited:drag]; });
        if (view != nil)
            guarded("draggingEnded", [&] { [asDestination(view) draggingEnded:drag]; });
        drain();
        return isTaken;
    }
}

void cancelFileDrag() {
    pointer().offered = NSDragOperationNone;
    static_cast<void>(dropFiles());
}

}
