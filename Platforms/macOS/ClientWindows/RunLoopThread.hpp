/// A thread that serves one run-loop source, so that its events never wait for the main thread.
#pragma once

#include "Bridge/CFHandle.hpp"
#include "Foundation/NonCopyable.hpp"

#import <CoreFoundation/CoreFoundation.h>

#include <atomic>
#include <future>
#include <thread>

namespace vireline::macos {

class RunLoopThread : private NonCopyable {
public:
    explicit RunLoopThread(CFRunLoopSourceRef _Nonnull source);

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
