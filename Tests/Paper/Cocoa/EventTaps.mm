// Event taps, and the run loop sources that serve them.
#include "Cocoa/Paper.hpp"

#include <algorithm>

// Documented: a tap's port holds no reference to what its callback is given, and is enabled and
// disabled by itself.
@interface PaperPort : NSObject
@property CGEventTapCallBack callback;
@property void* info;
@property CGEventMask mask;
@property BOOL isEnabled;
@end

@implementation PaperPort
@end

// Documented: a source of a run loop holds the port that it serves.
@interface PaperRunLoopSource : NSObject
@property(strong) PaperPort* port;
@property(strong) id loop;
@end

@implementation PaperRunLoopSource
@end

// Documented: where the pointer goes can be changed on its way. Belief: the location that the
// callback set is what the rest of the system gets to see, and the pointer's picture with it.
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
    std::size_t unansweredMoves = 0;
    bool isAllowed = true;
    bool isTakenBack = false;
    bool isEscapeDown = false;
};

Taps& taps() {
    static auto& only = *new Taps;
    return only;
}

PaperPort* portOf(CFMachPortRef reference) {
    return (__bridge PaperPort*)reference;
}

/// Null while no loop serves the port.
CFRunLoopRef loopOf(PaperPort* port) {
    const std::lock_guard hold{paper::rt::lock()};
    for (PaperRunLoopSource* const source : taps().sources)
        if (source.port == port)
            return (__bridge CFRunLoopRef)source.loop;
    return nullptr;
}

/// Documented: the callback runs on the loop to which the port's source was added.
bool call(PaperPort* port, CGEventType type, PaperEvent* event) {
    const id loop = (__bridge id)loopOf(port);
    if (loop == nil)
        return true;
    return paper::performOn((__bridge CFRunLoopRef)loop, [&] {
        // The proxy is never dereferenced.
        const auto proxy = reinterpret_cast<CGEventTapProxy>(&taps());
        paper::guarded("event tap",
                       [&] { port.callback(proxy, type, (__bridge CGEventRef)event, port.info); });
    });
}

std::vector<PaperPort*> enabledPorts() {
    const std::lock_guard hold{paper::rt::lock()};
    std::vector<PaperPort*> enabled = taps().ports;
    std::erase_if(enabled, [](PaperPort* port) { return !port.isEnabled; });
    return enabled;
}

}

extern "C" {

CFRunLoopRef CFRunLoopGetMain(void) {
    return (__bridge CFRunLoopRef)NSRunLoop.mainRunLoop;
}

void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef reference, CFRunLoopMode) {
    const std::lock_guard hold{paper::rt::lock()};
    PaperRunLoopSource* const source = (__bridge PaperRunLoopSource*)reference;
    source.loop = (__bridge id)loop;
    taps().sources.push_back(source);
    paper::sourceAdded(loop);
}

// Belief: null for a port that has become invalid, as the open sources of Core Foundation say.
CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef, CFMachPortRef port, CFIndex) {
    if (taps().isTakenBack) {
        const std::lock_guard hold{paper::rt::lock()};
        std::erase(taps().ports, portOf(port));
        return nullptr;
    }
    PaperRunLoopSource* const source = [[PaperRunLoopSource alloc] init];
    source.port = portOf(port);
    return (__bridge_retained CFRunLoopSourceRef)source;
}

// Documented: the port's sources are removed from their run loops.
void CFMachPortInvalidate(CFMachPortRef reference) {
    const std::lock_guard hold{paper::rt::lock()};
    PaperPort* const port = portOf(reference);
    std::erase_if(taps().sources, [&](PaperRunLoopSource* source) {
        if (source.port != port)
            return false;
        paper::sourceRemoved((__bridge CFRunLoopRef)source.loop);
        return true;
    });
    std::erase(taps().ports, port);
}

// Documented: null without the permission. A new tap is enabled. Belief: a tap for mouse events
// needs only the Accessibility permission.
CFMachPortRef CGEventTapCreate(CGEventTapLocation, CGEventTapPlacement, CGEventTapOptions,
                               CGEventMask mask, CGEventTapCallBack callback, void* info) {
    if (!paper::isTrusted() || !taps().isAllowed)
        return nullptr;
    PaperPort* const port = [[PaperPort alloc] init];
    port.callback = callback;
    port.info = info;
    port.mask = mask;
    port.isEnabled = YES;
    const std::lock_guard hold{paper::rt::lock()};
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
    for (PaperPort* const port : enabledPorts())
        if ((port.mask >> type & 1U) != 0 && !call(port, type, event))
            ++taps().unansweredMoves;
    return event.location;
}

// Belief: the callback is told with a non-null event.
void disableTaps(CGEventType reason) {
    PaperEvent* const event = [[PaperEvent alloc] init];
    for (PaperPort* const port : enabledPorts()) {
        port.isEnabled = NO;
        static_cast<void>(call(port, reason, event));
    }
    drain();
}

std::size_t unansweredMoves() {
    return taps().unansweredMoves;
}

void allowTaps(bool allows) {
    taps().isAllowed = allows;
}

void takeTapsBack(bool takes) {
    taps().isTakenBack = takes;
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
