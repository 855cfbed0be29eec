/// Paces the frames of one dock in step with the refresh of its display. Idle while no frame is
/// requested.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Translation/FramePacer.hpp"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>

namespace vireline::macos {

/// Ticks of a display's refresh, stopped at first.
class RefreshTicks : private NonCopyable {
public:
    virtual ~RefreshTicks() = default;

    virtual void start() = 0;
    virtual void stop() = 0;
};

class FrameClock : private NonCopyable {
public:
    /// Calls `onFrame` for requested frames, in step with the display that shows `view`. If `view`
    /// is nil, there are no ticks.
    FrameClock(NSView* _Nullable view, std::function<void()> onFrame);

    void request();

    /// Shows a requested frame without waiting for a tick, and sets the ticks up again: the display
    /// may have been asleep, or may be a different one.
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
