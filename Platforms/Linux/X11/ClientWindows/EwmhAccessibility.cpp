#include "ClientWindows/EwmhAccessibility.hpp"

#include "Applications/ClientWindows/AppWindows.hpp"
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

constexpr float defaultTimeout = 0.5F;

std::unexpected<PlatformError> noWindow() {
    return std::unexpected{PlatformError{WindowReader::windowIsGone, "the app has no such window"}};
}

}

struct EwmhAccessibility::AppElement final : public AccessibilityElement {
    AppElement(std::int32_t process, std::string identifier)
        : processIdentifier(process), bundleID(std::move(identifier)) {}

    std::int32_t processIdentifier;
    std::string bundleID;

    static const AppElement& of(const AccessibilityElement& element) {
        return dynamic_cast<const AppElement&>(element);
    }
};

struct EwmhAccessibility::WindowElement final : public AccessibilityElement {
    explicit WindowElement(xdg::WindowID window) : id(xcbWindow(window)) {}

    xcb_window_t id;
    float timeout = defaultTimeout;
    /// What was set through this element. Remembered because the window manager applies it later,
    /// and setting one attribute must not undo another.
    std::optional<Point> position;
    std::optional<Size> size;

    static WindowElement& of(AccessibilityElement& element) {
        return dynamic_cast<WindowElement&>(element);
    }
};

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
    : applications_(applications), screens_(screens) {
    if (auto side = SideConnection::open())
        access_ = std::make_unique<Access>(*std::move(side), connection, runLoop, screens);
}

bool EwmhAccessibility::canMoveWindows() const {
    return access_ && access_->reader.canMoveWindows(SideConnection::in(trustSeconds));
}

Subscription EwmhAccessibility::observeManager(std::function<void()> handler) {
    return access_ ? access_->notice.observe(std::move(handler)) : Subscription{};
}

ElementHandle EwmhAccessibility::application(std::int32_t processIdentifier,
                                             const std::string& bundleID) {
    return std::make_shared<AppElement>(processIdentifier, bundleID);
}

void EwmhAccessibility::setMessagingTimeout(AccessibilityElement& element, float seconds) {
    // What is known about applications is cached, so a timeout matters only for windows.
    if (auto* const window = dynamic_cast<WindowElement*>(&element))
        window->timeout = seconds;
}

Result<ElementHandle> EwmhAccessibility::mainWindow(AccessibilityElement& application) {
    const auto main = xdg::AppWindows::mainWindow(windowsOf(AppElement::of(application)));
    if (!main)
        return noWindow();
    return std::make_shared<WindowElement>(main->id);
}

Result<std::vector<ElementHandle>> EwmhAccessibility::windows(AccessibilityElement& application) {
    std::vector<ElementHandle> elements;
    for (const xdg::ClientWindow& window : windowsOf(AppElement::of(application)))
        elements.push_back(std::make_shared<WindowElement>(window.id));
    return elements;
}

Result<std::vector<OpenWindow>> EwmhAccessibility::openWindows(AccessibilityElement& application) {
    auto windows = applications_.titledWindows(AppElement::of(application).bundleID);
    std::vector<OpenWindow> open;
    open.reserve(windows.size());
    for (auto& window : windows)
        open.push_back(
            {std::make_shared<WindowElement>(window.id), std::move(window.title), window.isActive});
    return open;
}

Result<void> EwmhAccessibility::bringForward(AccessibilityElement& window) {
    if (!applications_.bringWindowForward(windowID(WindowElement::of(window).id)))
        return noWindow();
    return {};
}

Result<Point> EwmhAccessibility::position(AccessibilityElement& window) {
    const auto found = frame(WindowElement::of(window));
    if (!found)
        return std::unexpected{found.error()};
    return Point{found->x, found->y};
}

Result<Size> EwmhAccessibility::size(AccessibilityElement& window) {
    const auto found = frame(WindowElement::of(window));
    if (!found)
        return std::unexpected{found.error()};
    return found->size();
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

std::vector<xdg::ClientWindow> EwmhAccessibility::windowsOf(const AppElement& application) const {
    return xdg::AppWindows::ofProcess(applications_.windows(application.bundleID),
                                      application.processIdentifier);
}

Result<WindowSnapshot> EwmhAccessibility::look(const WindowElement& window) const {
    if (!access_ || screens_.displays().empty())
        return noWindow();
    auto snapshot = access_->reader.read(window.id, SideConnection::in(window.timeout));
    // The snapshot may be older than a switch of desktops that was just requested.
    if (snapshot)
        snapshot->currentDesktop = applications_.currentDesktop();
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
        applications_.expectOnCurrentDesktop(windowID(window.id));
    access_->keeper.send(window.id, now, goal);
}

}
