/// Keeps the desktop's own dock on its display: a pointer that would pull it onto another one, by
/// being pushed against that display's bottom edge, never reaches the edge.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/Observable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Platform/PointerTap.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vireline {

class Accessibility;
class RunLoop;

class DockAnchorGuard {
public:
    enum class Status {
        off,
        waitingForPermission, ///< the user was asked, or the system gave no tap or took it back
        active,
    };

    DockAnchorGuard(Accessibility& accessibility, PointerTaps& taps, RunLoop& runLoop)
        : accessibility_(accessibility), taps_(taps), runLoop_(runLoop) {}
    DockAnchorGuard(const DockAnchorGuard&) = delete;
    DockAnchorGuard& operator=(const DockAnchorGuard&) = delete;
    DockAnchorGuard(DockAnchorGuard&&) = delete;
    DockAnchorGuard& operator=(DockAnchorGuard&&) = delete;
    ~DockAnchorGuard() = default;

    /// The bands that the pointer is kept out of, in event space; replaced whole, in any state.
    void setZones(std::vector<Rect> zones);

    /// All displays' frames, likewise: the pointer may go from one to the next.
    void setDisplays(std::vector<Rect> displays);

    [[nodiscard]] Status status() const noexcept { return status_.get(); }

    /// Calls `listener` after every change of `status`.
    [[nodiscard]] Subscription observeStatus(std::function<void()> listener) {
        return status_.observe(std::move(listener));
    }

    /// Starts guarding, or asks for the permission and starts once it is granted.
    void enable();

    void disable();

private:
    [[nodiscard]] bool mayTap() const;
    void waitForPermission();
    void lookEvery(double seconds);
    void checkPermission();
    void permissionWithdrawn();
    void startTap();
    /// With copies of its own, since the tap asks it on any thread.
    [[nodiscard]] PointerRule rule() const;
    void tapDisabled();

    Accessibility& accessibility_;
    PointerTaps& taps_;
    RunLoop& runLoop_;
    std::vector<Rect> zones_;
    std::vector<Rect> displays_;
    Observable<Status> status_{Status::off};
    /// Exists exactly while `status` is `active`.
    std::unique_ptr<PointerTap> tap_;
    /// Looks at the permission as long as the guard is enabled and taps need one.
    Timer permissionPoll_;
    /// The last tap asked for was refused, which the log says once.
    bool hasFailed_ = false;
    Lifetime lifetime_;
};

}
