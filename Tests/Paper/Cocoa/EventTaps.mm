// Taps in the stream of events, and the run loop sources that serve them.
#include "Cocoa/Paper.hpp"

#include <algorithm>

@interface PaperPort : NSObject
@property CGEventTapCallBack callback;
@property void* info;
@property CGEventMask mask;
@property BOOL isEnabled;
@property BOOL isServed;
@end

@implementation PaperPort
@end

@interface PaperRunLoopSource : NSObject
@property(strong) PaperPort* port;
@end

@implementation PaperRunLoopSource
@end

@interface PaperEvent : NSObject
@property CGPoint location;
@end

@implementation PaperEvent
@end

namespace {

struct Taps {
    std::vector<PaperPort*> ports;
    std::vector<PaperRunLoopSource*> sources;
    std::vector<std::pair<CGDisplayReconfigurationCallBack, void*>> displayWatches;
    bool isAllowed = true;
    bool isEscapeDown = false;
};

Taps& taps() {
    static auto& only = *new Taps;
    return only;
}

PaperPort* portOf(CFMachPortRef reference) {
    return (__bridge PaperPort*)reference;
}

void call(PaperPort* port, CGEventType type, PaperEvent* event) {
    // The proxy is never looked into.
    const auto proxy = reinterpret_cast<CGEventTapProxy>(&taps());
    paper::guarded("event tap",
                   [&] { port.callback(proxy, type, (__bridge CGEventRef)event, port.info); });
}

}

extern "C" {

CFRunLoopRef CFRunLoopGetMain(void) {
    return (__bridge CFRunLoopRef)NSRunLoop.mainRunLoop;
}

void CFRunLoopAddSource(CFRunLoopRef, CFRunLoopSourceRef reference, CFRunLoopMode) {
    PaperRunLoopSource* const source = (__bridge PaperRunLoopSource*)reference;
    source.port.isServed = YES;
    taps().sources.push_back(source);
}

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef, CFMachPortRef port, CFIndex) {
    PaperRunLoopSource* const source = [[PaperRunLoopSource alloc] init];
    source.port = portOf(port);
    return (__bridge_retained CFRunLoopSourceRef)source;
}

// Documented: the port's sources leave their run loops.
void CFMachPortInvalidate(CFMachPortRef reference) {
    PaperPort* const port = portOf(reference);
    std::erase_if(taps().sources, [&](PaperRunLoopSource* source) { return source.port == port; });
    std::erase(taps().ports, port);
}

// Documented: null without the permission. A new tap is enabled. Belief: it is Accessibility alone
// that a tap for mouse events needs.
CFMachPortRef CGEventTapCreate(CGEventTapLocation, CGEventTapPlacement, CGEventTapOptions,
                               CGEventMask mask, CGEventTapCallBack callback, void* info) {
    if (!paper::isTrusted() || !taps().isAllowed)
        return nullptr;
    PaperPort* const port = [[PaperPort alloc] init];
    port.callback = callback;
    port.info = info;
    port.mask = mask;
    port.isEnabled = YES;
    taps().ports.push_back(port);
    return (__bridge_retained CFMachPortRef)port;
}

void CGEventTapEnable(CFMachPortRef port, bool isEnabled) {
    portOf(port).isEnabled = isEnabled;
}

CGPoint CGEventGetLocation(CGEventRef event) {
    return ((__bridge PaperEvent*)event).location;
}

void CGEventSetLocation(CGEventRef event, CGPoint location) {
    ((__bridge PaperEvent*)event).location = location;
}

bool CGEventSourceKeyState(CGEventSourceStateID, CGKeyCode key) {
    constexpr CGKeyCode escape = 53;
    return key == escape && taps().isEscapeDown;
}

CGError CGDisplayRegisterReconfigurationCallback(CGDisplayReconfigurationCallBack callback,
                                                 void* info) {
    taps().displayWatches.emplace_back(callback, info);
    return kCGErrorSuccess;
}

CGError CGDisplayRemoveReconfigurationCallback(CGDisplayReconfigurationCallBack callback,
                                               void* info) {
    std::erase(taps().displayWatches, std::pair{callback, info});
    return kCGErrorSuccess;
}
}

namespace paper {

CGPoint throughTaps(CGPoint at, bool isDragging) {
    PaperEvent* const event = [[PaperEvent alloc] init];
    event.location = at;
    const CGEventType type = isDragging ? kCGEventLeftMouseDragged : kCGEventMouseMoved;
    const auto all = taps().ports;
    for (PaperPort* const port : all)
        if (port.isEnabled && port.isServed && (port.mask >> type & 1U) != 0)
            call(port, type, event);
    return event.location;
}

// Belief: the callback hears of it with an event that is not null.
void disableTaps(CGEventType reason) {
    PaperEvent* const event = [[PaperEvent alloc] init];
    const auto all = taps().ports;
    for (PaperPort* const port : all) {
        if (!port.isEnabled)
            continue;
        port.isEnabled = NO;
        call(port, reason, event);
    }
    drain();
}

void allowTaps(bool allows) {
    taps().isAllowed = allows;
}

std::size_t eventTaps() {
    return taps().ports.size() + taps().sources.size() + taps().displayWatches.size();
}

std::size_t enabledTaps() {
    const auto& ports = taps().ports;
    return static_cast<std::size_t>(
        std::ranges::count_if(ports, [](PaperPort* port) { return port.isEnabled; }));
}

void announceMainDisplay(unsigned number) {
    const auto all = taps().displayWatches;
    for (const auto& [callback, info] : all)
        callback(number, kCGDisplaySetMainFlag, info);
}

void setEscapeDown(bool isDown) {
    taps().isEscapeDown = isDown;
}

bool isEscapeDown() {
    return taps().isEscapeDown;
}

}
