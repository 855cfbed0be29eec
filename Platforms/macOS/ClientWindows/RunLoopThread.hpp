/// A thread that serves one run-loop source, so that its events never wait for the main thread.
#pragma once

#include "Bridge/CFHandle.hpp"

#import <CoreFoundation/CoreFoundation.h>

#include <atomic>
#include <future>
#include <thread>

namespace vireline::macos {

class RunLoopThread {
public:
    explicit RunLoopThread(CFRunLoopSourceRef _Nonnull source);
    RunLoopThread(const RunLoopThread&) = delete;
    RunLoopThread& operator=(const RunLoopThread&) = delete;
    RunLoopThread(RunLoopThread&&) = delete;
    RunLoopThread& operator=(RunLoopThread&&) = delete;

    /// Waits until a running callback of the source has returned. Invalidate the source first.
    ~RunLoopThread();

private:
    using Loop = CFHandle<CFRunLoopRef>;

    void serve(CFRunLoopSourceRef _Nonnull source, std::promise<Loop> begun);

    std::atomic<bool> isEnded_ = false;
    std::thread thread_;
    Loop loop_;
};

}
