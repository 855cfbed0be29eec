#include "Panels/FrameClock.hpp"

#include "Bridge/Attempt.hpp"

#import <QuartzCore/QuartzCore.h>
#import <dispatch/dispatch.h>

#include <utility>

/// The target of a display link.
@interface VirelineTickTarget : NSObject
- (instancetype)initWithFunction:(std::function<void()>)onTick;
- (void)tick:(id)sender;
@end

@implementation VirelineTickTarget {
    std::function<void()> _onTick;
}

- (instancetype)initWithFunction:(std::function<void()>)onTick {
    self = [super init];
    if (self != nil)
        _onTick = std::move(onTick);
    return self;
}

- (void)tick:(id)sender {
    // Copied, since the tick may destroy this object.
    const auto onTick = _onTick;
    onTick();
}

@end

namespace vireline::macos {
namespace {

/// A display link. It follows the view to other displays, and pauses while no display shows it.
class API_AVAILABLE(macos(14.0)) DisplayLinkTicks final : public RefreshTicks {
public:
    DisplayLinkTicks(NSView* view, std::function<void()> onTick)
        : link_([view
              displayLinkWithTarget:[[VirelineTickTarget alloc] initWithFunction:std::move(onTick)]
                           selector:@selector(tick:)]) {
        link_.paused = YES;
        [link_ addToRunLoop:NSRunLoop.mainRunLoop forMode:NSRunLoopCommonModes];
    }
    ~DisplayLinkTicks() override {
        attempt("invalidate", [this] { [link_ invalidate]; });
    }

    void start() override { link_.paused = NO; }
    void stop() override { link_.paused = YES; }

private:
    CADisplayLink* link_;
};

/// For systems whose views have no display links: a timer with the display's refresh rate.
class TimerTicks final : public RefreshTicks {
public:
    TimerTicks(NSView* view, std::function<void()> onTick)
        : view_(view), onTick_(std::make_shared<std::function<void()>>(std::move(onTick))) {}
    ~TimerTicks() override {
        attempt("invalidate", [this] { [timer_ invalidate]; });
    }

    void start() override {
        const NSInteger rate = view_.window.screen.maximumFramesPerSecond;
        constexpr NSInteger usualRate = 60;
        const std::weak_ptr<std::function<void()>> weak = onTick_;
        timer_ =
            [NSTimer timerWithTimeInterval:1.0 / static_cast<double>(rate > 0 ? rate : usualRate)
                                   repeats:YES
                                     block:^(NSTimer*) {
                                       if (const auto onTick = weak.lock())
                                           (*onTick)();
                                     }];
        [NSRunLoop.mainRunLoop addTimer:timer_ forMode:NSRunLoopCommonModes];
    }

    void stop() override {
        [timer_ invalidate];
        timer_ = nil;
    }

private:
    __weak NSView* view_;
    NSTimer* timer_ = nil;
    std::shared_ptr<std::function<void()>> onTick_;
};

std::unique_ptr<RefreshTicks> makeTicks(NSView* view, std::function<void()> onTick) {
    if (@available(macOS 14, *))
        return std::make_unique<DisplayLinkTicks>(view, std::move(onTick));
    return std::make_unique<TimerTicks>(view, std::move(onTick));
}

}

FrameClock::FrameClock(NSView* view, std::function<void()> onFrame)
    : view_(view), onFrame_(std::move(onFrame)) {
    listen();
}

void FrameClock::listen() {
    attempt("frame clock", [this] {
        if (NSView* const view = view_; view != nil)
            ticks_ = makeTicks(view, lifetime_.guard([this] { tick(); }));
    });
}

void FrameClock::setTicking(bool isTicking) {
    attempt("frame clock", [&] {
        if (ticks_ && isTicking)
            ticks_->start();
        else if (ticks_)
            ticks_->stop();
    });
}

void FrameClock::request() {
    if (pacer_.request() == FramePacer::Start::notNeeded)
        return;
    setTicking(true);
    fireSoon();
}

void FrameClock::catchUp() {
    listen();
    if (pacer_.isTicking())
        setTicking(true);
    fireSoon();
}

void FrameClock::fireSoon() {
    const auto soon = lifetime_.guard([this] { fire(); });
    dispatch_async(dispatch_get_main_queue(), ^{
      soon();
    });
}

void FrameClock::fire() {
    if (pacer_.fire())
        onFrame_();
}

void FrameClock::tick() {
    if (pacer_.tick() == FramePacer::Tick::frame)
        onFrame_();
    else
        setTicking(false);
}

}
