#include "Panels/CancelWatch.hpp"

#include "Bridge/Attempt.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Translation/DragWatch.hpp"

#import <AppKit/AppKit.h>
#import <CoreGraphics/CoreGraphics.h>

#include <memory>
#include <utility>

namespace vireline::macos {
namespace {

/// Key codes denote positions, so this is the same on every keyboard layout.
constexpr CGKeyCode escapeKey = 53;
constexpr NSTimeInterval interval = 1.0 / 60;

class Watch : private NonCopyable {
public:
    explicit Watch(std::function<void()> onCancel) : onCancel_(std::move(onCancel)) {}
    ~Watch() {
        attempt("removeMonitor", [this] {
            [timer_ invalidate];
            if (monitor_ != nil)
                [NSEvent removeMonitor:monitor_];
        });
    }

    static void start(const std::shared_ptr<Watch>& watch) {
        const std::weak_ptr<Watch> weak = watch;
        watch->timer_ = [NSTimer timerWithTimeInterval:interval
                                               repeats:YES
                                                 block:^(NSTimer*) {
                                                   if (const auto held = weak.lock())
                                                       held->look();
                                                 }];
        [NSRunLoop.mainRunLoop addTimer:watch->timer_ forMode:NSRunLoopCommonModes];
        // If a window of this program has the focus, it must not react to the key as well.
        watch->monitor_ =
            [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                                  handler:^NSEvent*(NSEvent* event) {
                                                    return event.keyCode == escapeKey ? nil : event;
                                                  }];
    }

private:
    void look() {
        const bool isCancelled = attemptOr(false, "pressedMouseButtons", [this] {
            return drag_.isCancelled({.isEscapeDown = CGEventSourceKeyState(
                                          kCGEventSourceStateCombinedSessionState, escapeKey),
                                      .isPrimaryDown = (NSEvent.pressedMouseButtons & 1) != 0});
        });
        if (!isCancelled)
            return;
        attempt("invalidate", [this] { [timer_ invalidate]; });
        // Copied, since the call may destroy this watch.
        const auto onCancel = onCancel_;
        onCancel();
    }

    std::function<void()> onCancel_;
    DragWatch drag_;
    NSTimer* timer_ = nil;
    id monitor_ = nil;
};

}

Subscription watchForCancel(std::function<void()> onCancel) {
    auto watch = std::make_shared<Watch>(std::move(onCancel));
    attempt("addLocalMonitor", [&] { Watch::start(watch); });
    return Subscription{std::move(watch)};
}

}
