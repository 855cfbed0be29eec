/// Other programs' windows, moved by the compositor. No protocol lets programs do that, so it works
/// only under compositors with a way of their own.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"
#include "Compositors/WindowPlacer.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Accessibility.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vireline::xdg {
class DesktopRunningApplications;
}

namespace vireline::wayland {

class CompositorAccessibility final : public Accessibility, private NonCopyable {
public:
    /// `placer` is null under compositors that have no such way. `primaryCorner` is the top-left
    /// corner of the primary display in the compositor's coordinates.
    CompositorAccessibility(std::unique_ptr<WindowPlacer> placer,
                            xdg::DesktopRunningApplications& applications,
                            std::function<Point()> primaryCorner);
    ~CompositorAccessibility() override;

    [[nodiscard]] bool isTrusted() const override { return canMoveWindows(); }
    [[nodiscard]] bool canMoveWindows() const override;
    /// The compositor stays the same for as long as the program runs.
    [[nodiscard]] Subscription observeManager(std::function<void()> /*handler*/) override {
        return {};
    }
    bool isTrustedWithPrompt() override { return isTrusted(); }

    [[nodiscard]] ElementHandle application(std::int32_t processIdentifier,
                                            const std::string& bundleID) override;
    void setMessagingTimeout(AccessibilityElement& element, float seconds) override;
    [[nodiscard]] Result<ElementHandle> mainWindow(AccessibilityElement& application) override;
    [[nodiscard]] Result<std::vector<ElementHandle>>
    windows(AccessibilityElement& application) override;
    [[nodiscard]] Result<std::vector<OpenWindow>>
    openWindows(AccessibilityElement& application) override;
    Result<void> bringForward(AccessibilityElement& window) override;
    [[nodiscard]] Result<Point> position(AccessibilityElement& window) override;
    Result<void> setPosition(AccessibilityElement& window, Point position) override;
    [[nodiscard]] Result<Size> size(AccessibilityElement& window) override;
    Result<void> setSize(AccessibilityElement& window, Size size) override;

private:
    struct AppElement;
    struct WindowElement;

    [[nodiscard]] std::vector<xdg::ClientWindow> windowsOf(const AppElement& application) const;
    [[nodiscard]] Result<Rect> frame(const WindowElement& window) const;

    std::unique_ptr<WindowPlacer> placer_;
    xdg::DesktopRunningApplications& applications_;
    std::function<Point()> primaryCorner_;
};

}
