#include "Compositors/CompositorAccessibility.hpp"

#include "Applications/ClientWindows/AppWindows.hpp"
#include "Applications/DesktopRunningApplications.hpp"

#include <cerrno>
#include <utility>

namespace vireline::wayland {
namespace {

constexpr float defaultTimeout = 0.5F;

std::unexpected<PlatformError> noWindow() {
    return std::unexpected{PlatformError{ENOENT, "the app has no such window"}};
}

std::unexpected<PlatformError> noPlacer() {
    return std::unexpected{PlatformError{ENOTSUP, "this compositor does not move windows"}};
}

}

struct CompositorAccessibility::AppElement final : public AccessibilityElement {
    AppElement(std::int32_t process, std::string identifier)
        : processIdentifier(process), bundleID(std::move(identifier)) {}

    std::int32_t processIdentifier;
    std::string bundleID;

    static const AppElement& of(const AccessibilityElement& element) {
        return dynamic_cast<const AppElement&>(element);
    }
};

struct CompositorAccessibility::WindowElement final : public AccessibilityElement {
    explicit WindowElement(xdg::WindowID window) : id(window) {}

    xdg::WindowID id;
    float timeout = defaultTimeout;
    /// Where it was put through this element, in the compositor's coordinates. A tiled window does
    /// not go there, but gets that place when it is given a size.
    std::optional<Point> position;

    static WindowElement& of(AccessibilityElement& element) {
        return dynamic_cast<WindowElement&>(element);
    }
};

CompositorAccessibility::CompositorAccessibility(std::unique_ptr<WindowPlacer> placer,
                                                 xdg::DesktopRunningApplications& applications,
                                                 std::function<Point()> primaryCorner)
    : placer_(std::move(placer))
    , applications_(applications)
    , primaryCorner_(std::move(primaryCorner)) {}

CompositorAccessibility::~CompositorAccessibility() = default;

bool CompositorAccessibility::canMoveWindows() const {
    return placer_ && placer_->isAvailable();
}

ElementHandle CompositorAccessibility::application(std::int32_t processIdentifier,
                                                   const std::string& bundleID) {
    return std::make_shared<AppElement>(processIdentifier, bundleID);
}

void CompositorAccessibility::setMessagingTimeout(AccessibilityElement& element, float seconds) {
    // Applications are known without asking the compositor.
    if (auto* const window = dynamic_cast<WindowElement*>(&element))
        window->timeout = seconds;
}

Result<ElementHandle> CompositorAccessibility::mainWindow(AccessibilityElement& application) {
    const auto main = xdg::AppWindows::mainWindow(windowsOf(AppElement::of(application)));
    if (!main)
        return noWindow();
    return std::make_shared<WindowElement>(main->id);
}

Result<std::vector<ElementHandle>>
CompositorAccessibility::windows(AccessibilityElement& application) {
    std::vector<ElementHandle> elements;
    for (const xdg::ClientWindow& window : windowsOf(AppElement::of(application)))
        elements.push_back(std::make_shared<WindowElement>(window.id));
    return elements;
}

Result<std::vector<OpenWindow>>
CompositorAccessibility::openWindows(AccessibilityElement& application) {
    auto windows = applications_.titledWindows(AppElement::of(application).bundleID);
    std::vector<OpenWindow> open;
    open.reserve(windows.size());
    for (auto& window : windows)
        open.push_back(
            {std::make_shared<WindowElement>(window.id), std::move(window.title), window.isActive});
    return open;
}

Result<void> CompositorAccessibility::bringForward(AccessibilityElement& window) {
    if (!applications_.bringWindowForward(WindowElement::of(window).id))
        return noWindow();
    return {};
}

Result<Point> CompositorAccessibility::position(AccessibilityElement& window) {
    const auto found = frame(WindowElement::of(window));
    if (!found)
        return std::unexpected{found.error()};
    const Point corner = primaryCorner_();
    return Point{found->x - corner.x, found->y - corner.y};
}

Result<Size> CompositorAccessibility::size(AccessibilityElement& window) {
    const auto found = frame(WindowElement::of(window));
    if (!found)
        return std::unexpected{found.error()};
    return found->size();
}

Result<void> CompositorAccessibility::setPosition(AccessibilityElement& window, Point position) {
    if (!placer_)
        return noPlacer();
    WindowElement& element = WindowElement::of(window);
    const Point corner = primaryCorner_();
    element.position = Point{position.x + corner.x, position.y + corner.y};
    return placer_->move(element.id, *element.position, static_cast<double>(element.timeout));
}

Result<void> CompositorAccessibility::setSize(AccessibilityElement& window, Size size) {
    WindowElement& element = WindowElement::of(window);
    const auto now = frame(element);
    if (!now)
        return std::unexpected{now.error()};
    const Point corner = element.position.value_or(now->origin());
    return placer_->place(element.id, {corner.x, corner.y, size.width, size.height},
                          static_cast<double>(element.timeout));
}

std::vector<xdg::ClientWindow>
CompositorAccessibility::windowsOf(const AppElement& application) const {
    return xdg::AppWindows::ofProcess(applications_.windows(application.bundleID),
                                      application.processIdentifier);
}

Result<Rect> CompositorAccessibility::frame(const WindowElement& window) const {
    if (!placer_)
        return noPlacer();
    return placer_->frame(window.id, static_cast<double>(window.timeout));
}

}
