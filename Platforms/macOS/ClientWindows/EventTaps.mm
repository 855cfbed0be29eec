#include "ClientWindows/EventTaps.hpp"

#include "Bridge/CFHandle.hpp"
#include "Bridge/Conversions.hpp"
#include "ClientWindows/RunLoopThread.hpp"
#include "Translation/TapEvents.hpp"

#import <CoreGraphics/CoreGraphics.h>
#import <dispatch/dispatch.h>

#include <cerrno>
#include <mutex>
#include <optional>
#include <utility>

namespace vireline::macos {
namespace {

static_assert(TapEvents::mouseMoved == kCGEventMouseMoved);
static_assert(TapEvents::leftMouseDragged == kCGEventLeftMouseDragged);
static_assert(TapEvents::tapDisabledByTimeout == kCGEventTapDisabledByTimeout);
static_assert(TapEvents::tapDisabledByUserInput == kCGEventTapDisabledByUserInput);

class EventTap final : public PointerTap {
public:
    EventTap(PointerRule rule, PointerTaps::Disabled onDisabled)
        : rule_(std::make_shared<const PointerRule>(std::move(rule)))
        , onDisabled_(std::make_shared<const PointerTaps::Disabled>(std::move(onDisabled)))
        , port_(CGEventTapCreate(kCGHIDEventTap, kCGHeadInsertEventTap, kCGEventTapOptionDefault,
                                 TapEvents::mask, &passed, this)) {
        if (!port_)
            return;
        source_ = CFHandle{CFMachPortCreateRunLoopSource(nullptr, port_.get(), 0)};
        // The system may already have invalidated the port.
        if (!source_) {
            port_ = {};
            return;
        }
        // New taps are enabled.
        CGEventTapEnable(port_.get(), false);
        thread_.emplace(source_.get());
    }
    ~EventTap() override {
        if (!port_)
            return;
        CGEventTapEnable(port_.get(), false);
        // This also removes the source from the run loop.
        CFMachPortInvalidate(port_.get());
        // Waits for an event that is being handled, which needs the other members.
        thread_.reset();
    }

    [[nodiscard]] bool wasCreated() const noexcept { return static_cast<bool>(port_); }

    void setEnabled(bool isEnabled) override { CGEventTapEnable(port_.get(), isEnabled); }

    void setRule(PointerRule rule) override {
        auto next = std::make_shared<const PointerRule>(std::move(rule));
        const std::lock_guard hold{ruleLock_};
        rule_.swap(next);
    }

private:
    static CGEventRef passed(CGEventTapProxy, CGEventType type, CGEventRef event, void* tap) {
        if (tap != nullptr)
            static_cast<EventTap*>(tap)->handle(type, event);
        return event;
    }

    /// Called on the tap's own thread.
    void handle(CGEventType type, CGEventRef event) {
        const auto kind = TapEvents::kind(type);
        if (kind == PointerTapEvent::mouseMoved || kind == PointerTapEvent::leftMouseDragged)
            move(event);
        else if (kind)
            reportDisabled(*kind);
    }

    void move(CGEventRef event) {
        if (event == nullptr)
            return;
        @autoreleasepool {
            if (const auto moved = (*rule())(toPoint(CGEventGetLocation(event))))
                CGEventSetLocation(event, toCGPoint(*moved));
        }
    }

    std::shared_ptr<const PointerRule> rule() {
        const std::lock_guard hold{ruleLock_};
        return rule_;
    }

    void reportDisabled(PointerTapEvent why) {
        const std::weak_ptr<const PointerTaps::Disabled> weak = onDisabled_;
        dispatch_async(dispatch_get_main_queue(), ^{
          // Keeps the callback alive during the call, which may destroy this tap.
          if (const auto onDisabled = weak.lock())
              (*onDisabled)(why);
        });
    }

    std::mutex ruleLock_;
    std::shared_ptr<const PointerRule> rule_;
    std::shared_ptr<const PointerTaps::Disabled> onDisabled_;
    CFHandle<CFMachPortRef> port_;
    CFHandle<CFRunLoopSourceRef> source_;
    std::optional<RunLoopThread> thread_;
};

}

Result<std::unique_ptr<PointerTap>> EventTaps::create(PointerRule rule, Disabled onDisabled) {
    auto tap = std::make_unique<EventTap>(std::move(rule), std::move(onDisabled));
    if (!tap->wasCreated())
        return std::unexpected{PlatformError{EPERM, "no event tap"}};
    return std::unique_ptr<PointerTap>{std::move(tap)};
}

}
