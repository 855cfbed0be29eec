#include "Applications/ClientAccessibility.hpp"

#include "Applications/ClientWindows/AppWindows.hpp"
#include "Applications/DesktopRunningApplications.hpp"

#include <cerrno>
#include <utility>

namespace vireline::xdg {

struct ClientAccessibility::AppElement final : public AccessibilityElement {
    AppElement(std::int32_t process, std::string identifier)
        : processIdentifier(process), bundleID(std::move(identifier)) {}

    std::int32_t processIdentifier;
    std::string bundleID;

    static const AppElement& of(const AccessibilityElement& element) {
        return dynamic_cast<const AppElement&>(element);
    }
};

ClientAccessibility::WindowElement&
ClientAccessibility::WindowElement::of(AccessibilityElement& element) {
    return dynamic_cast<WindowElement&>(element);
}

std::unexpected<PlatformError> ClientAccessibility::noWindow() {
    return std::unexpected{PlatformError{ENOENT, "the app has no such window"}};
}

ElementHandle ClientAccessibility::application(std::int32_t processIdentifier,
                                               const std::string& bundleID) {
    return std::make_shared<AppElement>(processIdentifier, bundleID);
}

void ClientAccessibility::setMessagingTimeout(AccessibilityElement& element, float seconds) {
    // What is known about applications is cached, so a timeout matters only for windows.
    if (auto* const window = dynamic_cast<WindowElement*>(&element))
        window->timeout = seconds;
}

Result<ElementHandle> ClientAccessibility::mainWindow(AccessibilityElement& application) {
    const auto main = AppWindows::mainWindow(windowsOf(application));
    if (!main)
        return noWindow();
    return std::make_shared<WindowElement>(main->id);
}

Result<std::vector<ElementHandle>> ClientAccessibility::windows(AccessibilityElement& application) {
    std::vector<ElementHandle> elements;
    for (const ClientWindow& window : windowsOf(application))
        elements.push_back(std::make_shared<WindowElement>(window.id));
    return elements;
}

Result<std::vector<OpenWindow>>
ClientAccessibility::openWindows(AccessibilityElement& application) {
    auto windows = applications_.titledWindows(AppElement::of(application).bundleID);
    std::vector<OpenWindow> open;
    open.reserve(windows.size());
    for (auto& window : windows)
        open.push_back(
            {std::make_shared<WindowElement>(window.id), std::move(window.title), window.isActive});
    return open;
}

Result<void> ClientAccessibility::bringForward(AccessibilityElement& window) {
    if (!applications_.bringWindowForward(WindowElement::of(window).id))
        return noWindow();
    return {};
}

Result<Point> ClientAccessibility::position(AccessibilityElement& window) {
    const auto found = frame(WindowElement::of(window));
    if (!found)
        return std::unexpected{found.error()};
    return found->origin();
}

Result<Size> ClientAccessibility::size(AccessibilityElement& window) {
    const auto found = frame(WindowElement::of(window));
    if (!found)
        return std::unexpected{found.error()};
    return found->size();
}

std::vector<ClientWindow> ClientAccessibility::windowsOf(AccessibilityElement& application) const {
    const AppElement& app = AppElement::of(application);
    return AppWindows::ofProcess(applications_.windows(app.bundleID), app.processIdentifier);
}

}
