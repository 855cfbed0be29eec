/// Keeps the desktop's own dock on its display. That dock moves to a display when the pointer
/// pushes against its bottom edge, so the guard keeps the pointer off those edges.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Observable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/Desktop/PointerTap.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vireline {

class Accessibility;
class RunLoop;

class DockAnchorGuard : private NonCopyable {
public:
    enum class Status {
        off,
        waitingForPermission, ///< the user was asked, or the tap failed or was revoked
        active,
    };

    DockAnchorGuard(Accessibility& accessibility, PointerTaps& taps, RunLoop& runLoop)
        : accessibility_(accessibility), taps_(taps), runLoop_(runLoop) {}

    /// Sets the bands that the pointer is kept out of, in event space. May be called in any state.
    void setZones(std::vector<Rect> zones);

    /// Sets the frames of all displays, in event space: the pointer may cross a band to reach
    /// another display.
    void setDisplays(std::vector<Rect> displays);

    [[nodiscard]] Status status() const noexcept { return status_.get(); }

    /// Calls `listener` after every change of `status`.
    [[nodiscard]] Subscription observeStatus(std::function<void()> listener) {
        return status_.observe(std::move(listener));
    }

    /// Starts guarding, or requests the permission and starts once it is granted.
    void enable();

    void disable();

private:
    [[nodiscard]] bool isTapPermitted() const;
    void waitForPermission();
    void pollPermission(double seconds);
    void checkPermission();
    void permissionWithdrawn();
    void startTap();
    /// The rule has its own copies of the data, since the tap may call it on any thread.
    [[nodiscard]] PointerRule rule() const;
    void tapDisabled();

    Accessibility& accessibility_;
    PointerTaps& taps_;
    RunLoop& runLoop_;
    std::vector<Rect> zones_;
    std::vector<Rect> displays_;
    Observable<Status> status_{Status::off};
    /// Set if and only if `status` is `active`.
    std::unique_ptr<PointerTap> tap_;
    /// Polls the permission while the guard is enabled, if taps need one.
    Timer permissionPoll_;
    /// The last attempt to create a tap failed. Used to log consecutive failures only once.
    bool hasFailed_ = false;
    Lifetime lifetime_;
};

}
