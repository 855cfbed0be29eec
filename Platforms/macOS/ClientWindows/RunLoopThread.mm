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

/// The thread either runs its loop, which is stopped, or is about to: then the loop, which has no
/// source any more, ends by itself.
RunLoopThread::~RunLoopThread() {
    isEnded_ = true;
    CFRunLoopStop(loop_.get());
    thread_.join();
}

void RunLoopThread::serve(CFRunLoopSourceRef source, std::promise<Loop> begun) {
    @autoreleasepool {
        // The pointer waits for it.
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
