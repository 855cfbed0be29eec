/// Other programs' windows, moved by the compositor. No protocol lets programs do that, so it works
/// only under compositors with a way of their own.
#pragma once

#include "Applications/ClientAccessibility.hpp"
#include "Compositors/WindowPlacer.hpp"

#include <functional>
#include <memory>

namespace vireline::wayland {

class CompositorAccessibility final : public xdg::ClientAccessibility {
public:
    /// `placer` is null under compositors that have no such way. `primaryCorner` is the top-left
    /// corner of the primary display in the compositor's coordinates.
    CompositorAccessibility(std::unique_ptr<WindowPlacer> placer,
                            xdg::DesktopRunningApplications& applications,
                            std::function<Point()> primaryCorner);
    ~CompositorAccessibility() override;

    [[nodiscard]] bool canMoveWindows() const override;
    /// The compositor stays the same for as long as the program runs.
    [[nodiscard]] Subscription observeManager(std::function<void()> /*handler*/) override {
        return {};
    }
    Result<void> setPosition(AccessibilityElement& window, Point position) override;
    Result<void> setSize(AccessibilityElement& window, Size size) override;

private:
    [[nodiscard]] Result<Rect> frame(const WindowElement& window) const override;

    std::unique_ptr<WindowPlacer> placer_;
    std::function<Point()> primaryCorner_;
};

}
