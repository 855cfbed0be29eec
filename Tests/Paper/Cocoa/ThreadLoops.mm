// Run loops of threads other than the main one, for the sources of event taps.
#include "Cocoa/Paper.hpp"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

// Documented: a loop ends when it is stopped, which has no effect on a loop that is not running,
// and when no source is left in its mode.
@interface PaperThreadLoop : NSObject
- (void)addSource;
- (void)removeSource;
- (int32_t)run;
- (void)stop;
- (BOOL)perform:(const std::function<void()>&)body;
@end

namespace {

struct Task {
    std::function<void()> body;
    bool isBegun = false;
    bool isDone = false;
};

}

@implementation PaperThreadLoop {
    std::mutex _lock;
    std::condition_variable _changed;
    std::deque<std::shared_ptr<Task>> _tasks;
    int _sources;
    bool _isRunning;
    bool _isStopped;
}

- (void)addSource {
    const std::lock_guard hold{_lock};
    ++_sources;
}

- (void)removeSource {
    const std::lock_guard hold{_lock};
    --_sources;
    _changed.notify_all();
}

- (int32_t)run {
    constexpr int32_t finished = 1;
    constexpr int32_t stopped = 2;
    std::unique_lock hold{_lock};
    _isStopped = false;
    _isRunning = true;
    int32_t outcome = finished;
    while (_sources > 0) {
        if (_isStopped) {
            outcome = stopped;
            break;
        }
        if (_tasks.empty()) {
            _changed.wait(hold);
            continue;
        }
        const auto task = _tasks.front();
        _tasks.pop_front();
        task->isBegun = true;
        hold.unlock();
        task->body();
        hold.lock();
        task->isDone = true;
        _changed.notify_all();
    }
    _isRunning = false;
    return outcome;
}

- (void)stop {
    const std::lock_guard hold{_lock};
    _isStopped = _isRunning;
    _changed.notify_all();
}

- (BOOL)perform:(const std::function<void()>&)body {
    constexpr std::chrono::seconds timeout{1};
    const auto task = std::make_shared<Task>(Task{.body = body});
    std::unique_lock hold{_lock};
    _tasks.push_back(task);
    _changed.notify_all();
    _changed.wait_for(hold, timeout, [&] { return task->isBegun || _sources == 0; });
    _changed.wait(hold, [&] { return task->isDone || !task->isBegun; });
    std::erase(_tasks, task);
    return task->isDone;
}

@end

namespace {

/// Sends no messages, because it is called on every thread.
bool isMain(CFRunLoopRef loop) {
    return paper::rt::classOf(reinterpret_cast<paper::rt::Object*>(loop)) ==
           paper::rt::classNamed("NSRunLoop");
}

struct OwnLoop {
    PaperThreadLoop* loop = [[PaperThreadLoop alloc] init];
};

PaperThreadLoop* currentLoop() {
    thread_local const OwnLoop own;
    return own.loop;
}

PaperThreadLoop* threadLoop(CFRunLoopRef loop) {
    return (__bridge PaperThreadLoop*)loop;
}

}

extern "C" {

CFRunLoopRef CFRunLoopGetCurrent(void) {
    if (paper::rt::isMainThread())
        return (__bridge CFRunLoopRef)NSRunLoop.mainRunLoop;
    return (__bridge CFRunLoopRef)currentLoop();
}

void CFRunLoopStop(CFRunLoopRef loop) {
    [threadLoop(loop) stop];
}

// On the main thread, virtual time passes.
int32_t CFRunLoopRunInMode(CFRunLoopMode, double seconds, Boolean) {
    constexpr int32_t timedOut = 3;
    if (!paper::rt::isMainThread())
        return [threadLoop(CFRunLoopGetCurrent()) run];
    paper::advance(seconds);
    return timedOut;
}
}

namespace paper {

void sourceAdded(CFRunLoopRef loop) {
    if (!isMain(loop))
        [threadLoop(loop) addSource];
}

void sourceRemoved(CFRunLoopRef loop) {
    if (!isMain(loop))
        [threadLoop(loop) removeSource];
}

bool performOn(CFRunLoopRef loop, const std::function<void()>& body) {
    if (!isMain(loop))
        return [threadLoop(loop) perform:body];
    if (standsStill())
        return false;
    body();
    return true;
}

}
