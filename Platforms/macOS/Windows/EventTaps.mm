#include "Windows/EventTaps.hpp"

#include "Bridge/CFHandle.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/TapEvents.hpp"

#import <CoreGraphics/CoreGraphics.h>

#include <cerrno>
#include <utility>

namespace vireline::macos {
namespace {

static_assert(TapEvents::mouseMoved == kCGEventMouseMoved);
static_assert(TapEvents::leftMouseDragged == kCGEventLeftMouseDragged);
static_assert(TapEvents::tapDisabledByTimeout == kCGEventTapDisabledByTimeout);
static_assert(TapEvents::tapDisabledByUserInput == kCGEventTapDisabledByUserInput);

class EventTap final : public PointerTap {
public:
    explicit EventTap(PointerTaps::Callback callback)
        : callback_(std::make_shared<PointerTaps::Callback>(std::move(callback)))
        , port_(CGEventTapCreate(kCGHIDEventTap, kCGHeadInsertEventTap, kCGEventTapOptionDefault,
                                 TapEvents::mask, &passed, this)) {
        if (!port_)
            return;
        source_ = CFHandle{CFMachPortCreateRunLoopSource(nullptr, port_.get(), 0)};
        // The system may have taken the port back already.
        if (!source_) {
            port_ = {};
            return;
        }
        CFRunLoopAddSource(CFRunLoopGetMain(), source_.get(), kCFRunLoopCommonModes);
        // The system hands a new tap out enabled.
        CGEventTapEnable(port_.get(), false);
    }
    EventTap(const EventTap&) = delete;
    EventTap& operator=(const EventTap&) = delete;
    EventTap(EventTap&&) = delete;
    EventTap& operator=(EventTap&&) = delete;
    ~EventTap() override {
        if (!port_)
            return;
        CGEventTapEnable(port_.get(), false);
        // Takes the source out of the run loop as well.
        CFMachPortInvalidate(port_.get());
    }

    [[nodiscard]] bool wasCreated() const noexcept { return static_cast<bool>(port_); }

    void setEnabled(bool isEnabled) override { CGEventTapEnable(port_.get(), isEnabled); }

private:
    static CGEventRef passed(CGEventTapProxy, CGEventType type, CGEventRef event, void* tap) {
        if (tap != nullptr)
            static_cast<EventTap*>(tap)->handle(type, event);
        return event;
    }

    void handle(CGEventType type, CGEventRef event) {
        const auto kind = TapEvents::kind(type);
        if (!kind)
            return;
        // Held here, since the callback may end this tap.
        const auto callback = callback_;
        if (const auto moved = (*callback)({*kind, toPoint(CGEventGetLocation(event))}))
            CGEventSetLocation(event, toCGPoint(*moved));
    }

    std::shared_ptr<PointerTaps::Callback> callback_;
    CFHandle<CFMachPortRef> port_;
    CFHandle<CFRunLoopSourceRef> source_;
};

}

Result<std::unique_ptr<PointerTap>> EventTaps::create(Callback callback) {
    auto tap = std::make_unique<EventTap>(std::move(callback));
    if (!tap->wasCreated())
        return std::unexpected{PlatformError{EPERM, "no event tap"}};
    return std::unique_ptr<PointerTap>{std::move(tap)};
}

}
