/// Paces the frames of one dock in step with the refresh of the display it is on. Without a request
/// nothing wakes up.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Translation/FramePacer.hpp"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>

namespace vireline::macos {

/// The beat of a display's refresh, silent until it is started.
class RefreshTicks {
public:
    RefreshTicks() = default;
    RefreshTicks(const RefreshTicks&) = delete;
    RefreshTicks& operator=(const RefreshTicks&) = delete;
    RefreshTicks(RefreshTicks&&) = delete;
    RefreshTicks& operator=(RefreshTicks&&) = delete;
    virtual ~RefreshTicks() = default;

    virtual void start() = 0;
    virtual void stop() = 0;
};

class FrameClock {
public:
    /// Calls `onFrame` for frames that were asked for, on the display that shows `view`; without a
    /// beat where there is none.
    FrameClock(NSView* _Nullable view, std::function<void()> onFrame);
    FrameClock(const FrameClock&) = delete;
    FrameClock& operator=(const FrameClock&) = delete;
    FrameClock(FrameClock&&) = delete;
    FrameClock& operator=(FrameClock&&) = delete;
    ~FrameClock() = default;

    void request();

    /// Shows a frame that is due without waiting for the display, which may have been asleep or may
    /// be another one by now, and listens to it anew.
    void catchUp();

private:
    void listen();
    void fire();
    void tick();
    void fireSoon();
    void setTicking(bool isTicking);

    __weak NSView* _Nullable view_;
    std::function<void()> onFrame_;
    FramePacer pacer_;
    Lifetime lifetime_;
    std::unique_ptr<RefreshTicks> ticks_;
};

}
