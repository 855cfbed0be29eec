#include "ClientWindows/RunLoopThread.hpp"

#import <Foundation/Foundation.h>
#include <pthread/qos.h>

#include <utility>

namespace vireline::macos {

RunLoopThread::RunLoopThread(CFRunLoopSourceRef source) {
    std::promise<Loop> begun;
    std::future<Loop> loop = begun.get_future();
    thread_ = std::thread{&RunLoopThread::serve, this, source, std::move(begun)};
    loop_ = loop.get();
}

/// If the thread is running its loop, this stops the loop. If it is only about to, the loop ends by
/// itself, since the invalidated source was its only one.
RunLoopThread::~RunLoopThread() {
    isEnded_ = true;
    CFRunLoopStop(loop_.get());
    thread_.join();
}

void RunLoopThread::serve(CFRunLoopSourceRef source, std::promise<Loop> begun) {
    @autoreleasepool {
        // The pointer waits for this thread.
        pthread_set_qos_class_self_np(QOS_CLASS_USER_INTERACTIVE, 0);
        const CFRunLoopRef loop = CFRunLoopGetCurrent();
        CFRunLoopAddSource(loop, source, kCFRunLoopDefaultMode);
        CFRetain(loop);
        begun.set_value(Loop{loop});
        constexpr double endless = 1e9;
        while (!isEnded_ &&
               CFRunLoopRunInMode(kCFRunLoopDefaultMode, endless, 0) != kCFRunLoopRunFinished) {
        }
    }
}

}
