// The main run loop under a clock that only tests move, and dispatch queues on it and beside it.
#include "Cocoa/Paper.hpp"

#import <dispatch/dispatch.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <optional>
#include <thread>
#include <utility>

NSRunLoopMode const NSRunLoopCommonModes = @"kCFRunLoopCommonModes";

extern "C" {
const CFRunLoopMode kCFRunLoopCommonModes = CFSTR("kCFRunLoopCommonModes");
const CFRunLoopMode kCFRunLoopDefaultMode = CFSTR("kCFRunLoopDefaultMode");
}

namespace {

using Block = void (^)();

struct Loop {
    double now = 1000;
    std::deque<Block> performed;
    std::deque<Block> mainQueue;
    std::deque<Block> background;
    bool holdsBackground = false;
    /// In the order in which they were added.
    std::vector<NSTimer*> timers;
};

Loop& loop() {
    static auto& only = *new Loop;
    return only;
}

NSTimer* nextTimer() {
    NSTimer* next = nil;
    for (NSTimer* const timer : loop().timers)
        if (next == nil || timer.paperDue < next.paperDue)
            next = timer;
    return next;
}

/// False if there was nothing to run.
bool runOne(std::deque<Block>& queue) {
    if (queue.empty())
        return false;
    @autoreleasepool {
        const Block block = queue.front();
        queue.pop_front();
        paper::guarded("block", [&] { block(); });
    }
    return true;
}

}

// Documented: held by its run loop until it fired or was invalidated, holds its block, and a
// repeating one that missed turns fires once and keeps to its plan. No interval is the shortest
// one, 0.1 ms.
@implementation NSTimer {
    double _interval;
    void (^_block)(NSTimer*);
}

+ (NSTimer*)timerWithTimeInterval:(NSTimeInterval)interval
                          repeats:(BOOL)repeats
                            block:(void (^)(NSTimer*))block {
    NSTimer* const timer = [[NSTimer alloc] init];
    timer->_interval = interval > 0 ? interval : 0.0001;
    timer->_paperRepeats = repeats;
    timer->_block = block;
    return timer;
}

- (void)invalidate {
    NSTimer* const me = self;
    _block = nil;
    std::erase(loop().timers, me);
}

- (void)paperFire {
    NSTimer* const me = self;
    void (^const block)(NSTimer*) = _block;
    if (_paperRepeats)
        self.paperDue += (std::floor((loop().now - self.paperDue) / _interval) + 1) * _interval;
    else
        std::erase(loop().timers, me);
    paper::guarded("timer", [&] { block(me); });
    if (!_paperRepeats)
        _block = nil;
}

- (void)paperSchedule {
    NSTimer* const me = self;
    if (_block == nil || std::ranges::find(loop().timers, me) != loop().timers.end())
        return;
    self.paperDue = loop().now + _interval;
    loop().timers.push_back(me);
}

@end

// Documented: blocks performed in modes run in a turn of their own, before the main queue's.
// Belief: a menu that is open, or a control that is held, keeps the main queue waiting only if it
// was opened from there.
@implementation NSRunLoop

+ (NSRunLoop*)mainRunLoop {
    static NSRunLoop* const main = [[NSRunLoop alloc] init];
    return main;
}

- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode {
    static_cast<void>(mode);
    [timer paperSchedule];
}

- (void)performInModes:(NSArray*)modes block:(void (^)(void))block {
    static_cast<void>(modes);
    loop().performed.push_back(block);
}

@end

@implementation NSProcessInfo

+ (NSProcessInfo*)processInfo {
    static NSProcessInfo* const info = [[NSProcessInfo alloc] init];
    return info;
}

- (int)processIdentifier {
    return 4242;
}

- (NSTimeInterval)systemUptime {
    return loop().now;
}

@end

@interface PaperQueue : NSObject <OS_dispatch_queue>
@property BOOL isMain;
@end

@implementation PaperQueue
@end

// Documented: handlers run on the source's queue; the cancel handler runs once, after which no
// event comes; a source is created suspended.
@interface PaperSource : NSObject <OS_dispatch_source>
@property(copy) dispatch_block_t onEvent;
@property(copy) dispatch_block_t onCancel;
@property uintptr_t data;
@property BOOL isCancelled;
@end

@implementation PaperSource
@end

namespace {

std::vector<PaperSource*>& sources() {
    static auto& all = *new std::vector<PaperSource*>;
    return all;
}

PaperQueue* makeQueue(BOOL isMain) {
    PaperQueue* const queue = [[PaperQueue alloc] init];
    queue.isMain = isMain;
    return queue;
}

}

extern "C" {

const struct dispatch_source_type_s _dispatch_source_type_vnode{1};

dispatch_queue_t dispatch_get_main_queue(void) {
    static PaperQueue* const queue = makeQueue(YES);
    return queue;
}

dispatch_queue_t dispatch_get_global_queue(intptr_t, uintptr_t) {
    static PaperQueue* const queue = makeQueue(NO);
    return queue;
}

dispatch_queue_t dispatch_queue_create(const char*, dispatch_queue_attr_t) {
    return makeQueue(NO);
}

void dispatch_async(dispatch_queue_t queue, dispatch_block_t block) {
    const std::lock_guard hold{paper::rt::lock()};
    auto* const known = static_cast<PaperQueue*>(queue);
    (known.isMain ? loop().mainQueue : loop().background).push_back(block);
}

dispatch_source_t dispatch_source_create(dispatch_source_type_t, uintptr_t, uintptr_t,
                                         dispatch_queue_t) {
    return [[PaperSource alloc] init];
}

void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler) {
    static_cast<PaperSource*>(source).onEvent = handler;
}

void dispatch_source_set_cancel_handler(dispatch_source_t source, dispatch_block_t handler) {
    static_cast<PaperSource*>(source).onCancel = handler;
}

uintptr_t dispatch_source_get_data(dispatch_source_t source) {
    return static_cast<PaperSource*>(source).data;
}

void dispatch_resume(dispatch_object_t source) {
    sources().push_back(static_cast<PaperSource*>(source));
}

void dispatch_source_cancel(dispatch_source_t source) {
    auto* const cancelled = static_cast<PaperSource*>(source);
    if (cancelled.isCancelled)
        return;
    cancelled.isCancelled = YES;
    cancelled.onEvent = nil;
    std::erase(sources(), cancelled);
    if (const dispatch_block_t handler = cancelled.onCancel; handler != nil)
        loop().mainQueue.push_back(handler);
    cancelled.onCancel = nil;
}
}

namespace paper {

double now() {
    return loop().now;
}

std::size_t pendingTimers() {
    return loop().timers.size();
}

void stall(double seconds) {
    loop().now += seconds;
}

void holdBackground(bool holds) {
    loop().holdsBackground = holds;
}

void runBackgroundQueues() {
    std::thread{[] { static_cast<void>(runOne(loop().background)); }}.join();
}

void drain() {
    constexpr int endless = 10000;
    for (int turn = 0; turn < endless; ++turn) {
        if (runOne(loop().performed) || runOne(loop().mainQueue))
            continue;
        if (loop().background.empty() || loop().holdsBackground)
            return;
        runBackgroundQueues();
    }
    noteEscaped("drain: the loop never comes to rest", nil);
}

void advance(double seconds) {
    const double end = loop().now + seconds;
    drain();
    for (;;) {
        @autoreleasepool {
            NSTimer* const timer = nextTimer();
            const double atTimer = timer == nil ? never : timer.paperDue;
            const double atFrame = nextFrame();
            if (std::min(atTimer, atFrame) > end)
                break;
            loop().now = std::max(loop().now, std::min(atTimer, atFrame));
            if (atFrame <= atTimer)
                serveFrame();
            else
                [timer paperFire];
            drain();
        }
    }
    loop().now = std::max(loop().now, end);
}

std::size_t fileWatches() {
    return sources().size();
}

void announceFileEvent(unsigned long flags) {
    const auto all = sources();
    for (PaperSource* const source : all) {
        source.data = flags;
        if (const dispatch_block_t handler = source.onEvent; handler != nil)
            guarded("file event", [&] { handler(); });
    }
    drain();
}

}
