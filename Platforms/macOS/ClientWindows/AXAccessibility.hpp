/// Moves other programs' windows through the system's Accessibility interface.
#pragma once

#include "Platform/Applications/Accessibility.hpp"

namespace vireline::macos {

/// Positions and sizes need no conversion, since the interface uses event space too. An attribute
/// of an undocumented type is an error, like a missing one.
class AXAccessibility final : public Accessibility {
public:
    [[nodiscard]] bool isTrusted() const override;
    [[nodiscard]] bool canMoveWindows() const override { return true; }
    [[nodiscard]] Subscription observeManager(std::function<void()> /*handler*/) override {
        return {};
    }
    bool isTrustedWithPrompt() override;

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
};

}
