#include "Displays/MacScreens.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Bridge/Notifications.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Translation/DisplayNumbers.hpp"

#import <AppKit/AppKit.h>
#import <CoreGraphics/CoreGraphics.h>
#import <dispatch/dispatch.h>

#include <array>
#include <memory>
#include <utility>

namespace vireline::macos {
namespace {

using ScreensHandler = std::function<void()>;

/// nullopt if the entry is missing, not an integer, or out of range.
std::optional<std::uint32_t> displayNumber(NSScreen* screen) {
    const auto number = toWholeNumber(screen.deviceDescription[@"NSScreenNumber"]);
    return number ? DisplayNumbers::fromReported(*number) : std::nullopt;
}

PlatformScreen describe(NSScreen* screen) {
    const auto number = displayNumber(screen);
    return {.number = number,
            .unitNumber = number ? CGDisplayUnitNumber(*number) : 0,
            .frame = toRect(screen.frame),
            .visibleFrame = toRect(screen.visibleFrame),
            .backingScaleFactor = screen.backingScaleFactor};
}

/// Calls `handler` when another display becomes the main one.
class MainDisplayWatch : private NonCopyable {
public:
    explicit MainDisplayWatch(std::shared_ptr<ScreensHandler> handler)
        : handler_(std::move(handler)) {
        CGDisplayRegisterReconfigurationCallback(&reconfigured, this);
    }
    ~MainDisplayWatch() { CGDisplayRemoveReconfigurationCallback(&reconfigured, this); }

private:
    static void reconfigured(CGDirectDisplayID, CGDisplayChangeSummaryFlags flags, void* watch) {
        if ((flags & kCGDisplaySetMainFlag) == 0)
            return;
        const std::weak_ptr<ScreensHandler> weak = static_cast<MainDisplayWatch*>(watch)->handler_;
        // NSScreen is not up to date until the run loop's next turn.
        dispatch_async(dispatch_get_main_queue(), ^{
          if (const auto handler = weak.lock())
              (*handler)();
        });
    }

    std::shared_ptr<ScreensHandler> handler_;
};

/// What the subscription of one observer owns.
struct ScreensObservation {
    explicit ScreensObservation(ScreensHandler handler)
        : shared(std::make_shared<ScreensHandler>(std::move(handler))), mainDisplay(shared) {}

    std::shared_ptr<ScreensHandler> shared;
    MainDisplayWatch mainDisplay;
    std::vector<Subscription> notifications;
};

}

std::optional<std::string> displayName(std::uint32_t displayID) {
    return attemptOr(std::optional<std::string>{}, "localizedName", [&] {
        for (NSScreen* screen in NSScreen.screens) {
            if (displayNumber(screen) == displayID)
                return toOptionalText(screen.localizedName);
        }
        return std::optional<std::string>{};
    });
}

std::vector<PlatformScreen> MacScreens::screens() const {
    return attemptOr(std::vector<PlatformScreen>{}, "screens", [] {
        std::vector<PlatformScreen> described;
        for (NSScreen* screen in NSScreen.screens)
            described.push_back(describe(screen));
        return described;
    });
}

Subscription MacScreens::observeParameters(std::function<void()> handler) {
    auto observation = std::make_shared<ScreensObservation>(std::move(handler));
    const auto announce = [shared = observation->shared](NSNotification*) { (*shared)(); };
    observation->notifications.push_back(
        observe(ownCenter(), NSApplicationDidChangeScreenParametersNotification, announce));
    const std::array<NSNotificationName, 5> names{
        NSWorkspaceDidWakeNotification, NSWorkspaceScreensDidSleepNotification,
        NSWorkspaceScreensDidWakeNotification, NSWorkspaceSessionDidBecomeActiveNotification,
        NSWorkspaceSessionDidResignActiveNotification};
    for (NSNotificationName name : names)
        observation->notifications.push_back(observe(workspaceCenter(), name, announce));
    return Subscription{std::move(observation)};
}

}
