#include "WindowManagement/DockAnchorGuard.hpp"

#include "App/DevLog.hpp"
#include "Platform/Accessibility.hpp"
#include "Platform/RunLoop.hpp"
#include "WindowManagement/GuardMath.hpp"

#include <string>

namespace vireline {
namespace {

constexpr double permissionPollInterval = 2;

}

void DockAnchorGuard::enable() {
    if (tap_)
        return;
    if (accessibility_.isTrusted()) {
        permissionPoll_.reset();
        startTap();
    } else if (!permissionPoll_) {
        waitForPermission();
    }
}

void DockAnchorGuard::waitForPermission() {
    status_.set(Status::waitingForPermission);
    accessibility_.isTrustedWithPrompt();
    DevLog::write("anchor guard: requested Accessibility permission");
    permissionPoll_ =
        runLoop_.every(permissionPollInterval, lifetime_.guard([this] { checkPermission(); }));
}

void DockAnchorGuard::checkPermission() {
    if (status_.get() != Status::waitingForPermission || !accessibility_.isTrusted())
        return;
    permissionPoll_.reset();
    startTap();
}

void DockAnchorGuard::startTap() {
    auto tap = taps_.create(lifetime_.guardOr(
        std::optional<Point>{}, [this](const PointerTapEvent& event) { return pass(event); }));
    if (!tap) {
        DevLog::write("anchor guard: tap creation failed, staying in waiting state");
        status_.set(Status::waitingForPermission);
        return;
    }
    tap_ = *std::move(tap);
    tap_->setEnabled(true);
    status_.set(Status::active);
    DevLog::write("anchor guard active, " + std::to_string(zones.size()) + " zones");
}

std::optional<Point> DockAnchorGuard::pass(const PointerTapEvent& event) const {
    using Kind = PointerTapEvent::Kind;
    if (event.kind == Kind::tapDisabledByTimeout || event.kind == Kind::tapDisabledByUserInput) {
        if (tap_)
            tap_->setEnabled(true);
        return std::nullopt;
    }
    return GuardMath::clamp(event.location, zones);
}

void DockAnchorGuard::disable() {
    permissionPoll_.reset();
    if (tap_) {
        tap_->setEnabled(false);
        tap_.reset();
    }
    status_.set(Status::off);
    DevLog::write("anchor guard off");
}

}
