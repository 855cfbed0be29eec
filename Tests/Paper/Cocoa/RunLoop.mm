// The main run loop, on a clock that only tests advance, and the dispatch queues.
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
    bool standsStill = false;
    std::function<void()> onStall;
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

/// Returns false if there was nothing to run.
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

// Documented: retained by its run loop until it has fired or is invalidated; retains its block; a
// repeating timer that missed firings fires once and keeps its schedule. An interval of zero means
// the shortest one, 0.1 ms.
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
// Belief: an open menu or a held control blocks the main queue only if it was opened from there.
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

// Documented: systemUptime does not include sleep, which this clock does not simulate.
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

// Documented: the main queue runs its blocks one by one on the main thread, others elsewhere.
// Belief: the program does not care which thread that is; here it is a new one for each block.
@interface PaperQueue : NSObject <OS_dispatch_queue>
@property BOOL isMain;
@end

@implementation PaperQueue
@end

namespace {

PaperQueue* makeQueue(BOOL isMain) {
    PaperQueue* const queue = [[PaperQueue alloc] init];
    queue.isMain = isMain;
    return queue;
}

}

extern "C" {

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
}

namespace paper {

double now() {
    return loop().now;
}

std::size_t pendingTimers() {
    return loop().timers.size();
}

void stall(double seconds) {
    const bool before = std::exchange(loop().standsStill, true);
    if (loop().onStall)
        loop().onStall();
    loop().standsStill = before;
    loop().now += seconds;
}

bool standsStill() {
    return loop().standsStill;
}

void onStall(std::function<void()> meanwhile) {
    loop().onStall = std::move(meanwhile);
}

void holdBackground(bool holds) {
    loop().holdsBackground = holds;
}

void runBackgroundQueues() {
    std::thread{[] { static_cast<void>(runOne(loop().background)); }}.join();
}

void drain() {
    serveSources();
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
            // Prevents timers from firing early because of rounding errors.
            constexpr double lateness = 1e-6;
            loop().now = std::max(loop().now, std::min(atTimer, atFrame) + lateness);
            if (atFrame <= atTimer)
                serveFrame();
            else
                [timer paperFire];
            drain();
        }
    }
    loop().now = std::max(loop().now, end);
}

}
