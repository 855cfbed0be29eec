#include "ClientWindows/DockAnchorGuard.hpp"

#include "ClientWindows/GuardMath.hpp"
#include "Foundation/DevLog.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/RunLoop.hpp"

#include <string>
#include <utility>

namespace vireline {
namespace {

constexpr double permissionPollInterval = 2;
/// While active: the system does not announce that the permission was withdrawn.
constexpr double permissionCheckInterval = 5;

}

void DockAnchorGuard::setZones(std::vector<Rect> zones) {
    zones_ = std::move(zones);
    if (tap_)
        tap_->setRule(rule());
}

void DockAnchorGuard::setDisplays(std::vector<Rect> displays) {
    displays_ = std::move(displays);
    if (tap_)
        tap_->setRule(rule());
}

void DockAnchorGuard::enable() {
    if (tap_)
        return;
    if (isTapPermitted())
        startTap();
    else if (!permissionPoll_)
        waitForPermission();
}

bool DockAnchorGuard::isTapPermitted() const {
    return !taps_.needPermission() || accessibility_.isTrusted();
}

void DockAnchorGuard::waitForPermission() {
    status_.set(Status::waitingForPermission);
    accessibility_.isTrustedWithPrompt();
    DevLog::write("anchor guard: requested Accessibility permission");
    pollPermission(permissionPollInterval);
}

void DockAnchorGuard::pollPermission(double seconds) {
    if (!taps_.needPermission())
        return;
    permissionPoll_ = runLoop_.every(seconds, lifetime_.guard([this] { checkPermission(); }));
}

void DockAnchorGuard::checkPermission() {
    const bool isPermitted = isTapPermitted();
    if (tap_ && !isPermitted)
        permissionWithdrawn();
    else if (!tap_ && isPermitted)
        startTap();
}

/// A tap without permission must not be enabled again: the system would disable it each time, and
/// block the pointer of the whole session meanwhile.
void DockAnchorGuard::permissionWithdrawn() {
    tap_.reset();
    status_.set(Status::waitingForPermission);
    DevLog::write("anchor guard: Accessibility permission withdrawn");
    pollPermission(permissionPollInterval);
}

void DockAnchorGuard::startTap() {
    auto tap = taps_.create(rule(), lifetime_.guard([this](PointerTapEvent) { tapDisabled(); }));
    if (!tap) {
        if (!std::exchange(hasFailed_, true))
            DevLog::write("anchor guard: tap creation failed, staying in waiting state");
        status_.set(Status::waitingForPermission);
        pollPermission(permissionPollInterval);
        return;
    }
    hasFailed_ = false;
    tap_ = *std::move(tap);
    tap_->setEnabled(true);
    status_.set(Status::active);
    pollPermission(permissionCheckInterval);
    DevLog::write("anchor guard active, " + std::to_string(zones_.size()) + " zones");
}

PointerRule DockAnchorGuard::rule() const {
    return [zones = zones_, displays = displays_](Point at) {
        return GuardMath::clamp(at, zones, displays);
    };
}

void DockAnchorGuard::tapDisabled() {
    if (!tap_)
        return;
    if (isTapPermitted())
        tap_->setEnabled(true);
    else
        permissionWithdrawn();
}

void DockAnchorGuard::disable() {
    permissionPoll_.reset();
    hasFailed_ = false;
    if (tap_) {
        tap_->setEnabled(false);
        tap_.reset();
    }
    status_.set(Status::off);
    DevLog::write("anchor guard off");
}

}
