#include "App/MainRunLoop.hpp"

#include "Bridge/Attempt.hpp"

#import <Foundation/Foundation.h>

#include <memory>
#include <utility>

namespace vireline::macos {
namespace {

Timer add(double seconds, BOOL repeats, std::function<void()> fire) {
    const auto shared = std::make_shared<std::function<void()>>(std::move(fire));
    const std::weak_ptr<std::function<void()>> weak = shared;
    NSTimer* const timer = [NSTimer timerWithTimeInterval:seconds
                                                  repeats:repeats
                                                    block:^(NSTimer*) {
                                                      // Keeps the callback alive during the call,
                                                      // which may destroy its own timer.
                                                      if (const auto held = weak.lock())
                                                          (*held)();
                                                    }];
    [NSRunLoop.mainRunLoop addTimer:timer forMode:NSRunLoopCommonModes];
    return Timer::calling([timer, shared] { attempt("invalidate", [&] { [timer invalidate]; }); });
}

}

double MainRunLoop::now() const {
    return attemptOr(0.0, "systemUptime", [] { return NSProcessInfo.processInfo.systemUptime; });
}

Timer MainRunLoop::after(double seconds, std::function<void()> fire) {
    return attemptOr(Timer{}, "addTimer", [&] { return add(seconds, NO, std::move(fire)); });
}

Timer MainRunLoop::every(double seconds, std::function<void()> fire) {
    return attemptOr(Timer{}, "addTimer", [&] { return add(seconds, YES, std::move(fire)); });
}

}
