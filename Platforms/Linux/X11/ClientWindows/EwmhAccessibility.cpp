#include "ClientWindows/EwmhAccessibility.hpp"

#include "Applications/DesktopRunningApplications.hpp"
#include "Connection/XcbWindows.hpp"
#include "Displays/DisplayGeometry.hpp"
#include "Displays/RandrScreens.hpp"

#include <cstddef>
#include <utility>

namespace vireline::x11 {
namespace {

/// Timeout for checking the permission; applies to no particular element.
constexpr double trustSeconds = 0.5;

}

EwmhAccessibility::Access::Access(std::unique_ptr<SideConnection> opened, X11Connection& connection,
                                  RunLoop& runLoop, const RandrScreens& screens)
    : side(std::move(opened))
    , reader(connection, *side)
    , keeper(connection, *side, runLoop,
             [&screens] { return std::span<const Display>{screens.displays()}; })
    , notice(connection, reader, runLoop) {}

EwmhAccessibility::EwmhAccessibility(X11Connection& connection, RunLoop& runLoop,
                                     xdg::DesktopRunningApplications& applications,
                                     const RandrScreens& screens)
    : ClientAccessibility(applications), screens_(screens) {
    if (auto side = SideConnection::open())
        access_ = std::make_unique<Access>(*std::move(side), connection, runLoop, screens);
}

bool EwmhAccessibility::canMoveWindows() const {
    return access_ && access_->reader.canMoveWindows(SideConnection::in(trustSeconds));
}

Subscription EwmhAccessibility::observeManager(std::function<void()> handler) {
    return access_ ? access_->notice.observe(std::move(handler)) : Subscription{};
}

Result<void> EwmhAccessibility::setPosition(AccessibilityElement& window, Point position) {
    WindowElement& element = WindowElement::of(window);
    const auto now = look(element);
    if (!now)
        return std::unexpected{now.error()};
    element.position = position;
    const Size size = element.size.value_or(frame(*now).size());
    send(element, *now,
         {.frame = {position.x, position.y, size.width, size.height},
          .isSized = element.size.has_value()});
    return {};
}

Result<void> EwmhAccessibility::setSize(AccessibilityElement& window, Size size) {
    WindowElement& element = WindowElement::of(window);
    const auto now = look(element);
    if (!now)
        return std::unexpected{now.error()};
    element.size = size;
    const Rect current = frame(*now);
    const Point position = element.position.value_or(Point{current.x, current.y});
    send(element, *now,
         {.frame = {position.x, position.y, size.width, size.height}, .isSized = true});
    return {};
}

Result<WindowSnapshot> EwmhAccessibility::look(const WindowElement& window) const {
    if (!access_ || screens_.displays().empty())
        return noWindow();
    auto snapshot = access_->reader.read(xcbWindow(window.id), SideConnection::in(window.timeout));
    // The snapshot may be older than a switch of desktops that was just requested.
    if (snapshot)
        snapshot->currentDesktop = applications().currentDesktop();
    return snapshot;
}

Result<Rect> EwmhAccessibility::frame(const WindowElement& window) const {
    const auto snapshot = look(window);
    if (!snapshot)
        return std::unexpected{snapshot.error()};
    return frame(*snapshot);
}

Rect EwmhAccessibility::frame(const WindowSnapshot& snapshot) const {
    return DisplayGeometry::toEventSpace(screens_.displays(), snapshot.outer());
}

Rect EwmhAccessibility::visibleFrame(const Rect& meant) const {
    const auto& displays = screens_.displays();
    const auto index = static_cast<std::size_t>(
        &DisplayGeometry::nearest(displays, meant.center()) - displays.data());
    return DisplayGeometry::flipped(screens_.screens().at(index).visibleFrame, displays);
}

void EwmhAccessibility::send(const WindowElement& window, const WindowSnapshot& now,
                             WindowGoal goal) {
    goal.visible = visibleFrame(goal.frame);
    if (now.isOnAnotherDesktop())
        applications().expectOnCurrentDesktop(window.id);
    access_->keeper.send(xcbWindow(window.id), now, goal);
}

}
