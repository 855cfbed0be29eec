/// The part of `Accessibility` that is the same under every window system: apps, their windows, and
/// bringing one forward. Where windows are, and moving them, is left to the window system.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Applications/Accessibility.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vireline::xdg {

class DesktopRunningApplications;

class ClientAccessibility : public Accessibility, private NonCopyable {
public:
    [[nodiscard]] bool isTrusted() const final { return canMoveWindows(); }
    /// There is no permission to ask for.
    bool isTrustedWithPrompt() final { return isTrusted(); }

    [[nodiscard]] ElementHandle application(std::int32_t processIdentifier,
                                            const std::string& bundleID) final;
    void setMessagingTimeout(AccessibilityElement& element, float seconds) final;
    [[nodiscard]] Result<ElementHandle> mainWindow(AccessibilityElement& application) final;
    [[nodiscard]] Result<std::vector<ElementHandle>>
    windows(AccessibilityElement& application) final;
    /// No app is asked, so a hung one does not delay this.
    [[nodiscard]] Result<std::vector<OpenWindow>>
    openWindows(AccessibilityElement& application) final;
    Result<void> bringForward(AccessibilityElement& window) final;
    [[nodiscard]] Result<Point> position(AccessibilityElement& window) final;
    [[nodiscard]] Result<Size> size(AccessibilityElement& window) final;

protected:
    struct WindowElement final : AccessibilityElement {
        explicit WindowElement(WindowID window) : id(window) {}

        WindowID id;
        /// In seconds.
        float timeout = 0.5F;
        /// What was set through this element, in event space. Remembered because it may take effect
        /// later, and setting one attribute must not undo another.
        std::optional<Point> position;
        std::optional<Size> size;

        static WindowElement& of(AccessibilityElement& element);
    };

    explicit ClientAccessibility(DesktopRunningApplications& applications)
        : applications_(applications) {}

    [[nodiscard]] static std::unexpected<PlatformError> noWindow();
    [[nodiscard]] DesktopRunningApplications& applications() const noexcept {
        return applications_;
    }

private:
    struct AppElement;

    /// The window's outer frame, in event space.
    [[nodiscard]] virtual Result<Rect> frame(const WindowElement& window) const = 0;
    [[nodiscard]] std::vector<ClientWindow> windowsOf(AccessibilityElement& application) const;

    DesktopRunningApplications& applications_;
};

}
