/// Other programs' windows, moved through the window manager as pagers and taskbars do (EWMH). The
/// permission counts as granted exactly while a window manager supports that.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"
#include "ClientWindows/ManagerNotice.hpp"
#include "ClientWindows/WindowKeeper.hpp"
#include "ClientWindows/WindowReader.hpp"
#include "Connection/SideConnection.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Accessibility.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vireline::xdg {
class DesktopRunningApplications;
}

namespace vireline::x11 {

class RandrScreens;

class EwmhAccessibility final : public Accessibility, private NonCopyable {
public:
    EwmhAccessibility(X11Connection& connection, RunLoop& runLoop,
                      xdg::DesktopRunningApplications& applications, const RandrScreens& screens);

    [[nodiscard]] bool isTrusted() const override { return canMoveWindows(); }
    [[nodiscard]] bool canMoveWindows() const override;
    [[nodiscard]] Subscription observeManager(std::function<void()> handler) override;
    /// There is no permission to ask for; only another window manager could change the answer.
    bool isTrustedWithPrompt() override { return isTrusted(); }

    [[nodiscard]] ElementHandle application(std::int32_t processIdentifier,
                                            const std::string& bundleID) override;
    void setMessagingTimeout(AccessibilityElement& element, float seconds) override;
    [[nodiscard]] Result<ElementHandle> mainWindow(AccessibilityElement& application) override;
    [[nodiscard]] Result<std::vector<ElementHandle>>
    windows(AccessibilityElement& application) override;
    /// From the server: no app is asked, so a hung one does not delay this.
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

    /// Created once the server has accepted the connection, and then kept.
    struct Access {
        Access(std::unique_ptr<SideConnection> opened, X11Connection& connection, RunLoop& runLoop,
               const RandrScreens& screens);

        std::unique_ptr<SideConnection> side;
        WindowReader reader;
        WindowKeeper keeper;
        ManagerNotice notice;
    };

    [[nodiscard]] std::vector<xdg::ClientWindow> windowsOf(const AppElement& application) const;
    [[nodiscard]] Result<WindowSnapshot> look(const WindowElement& window) const;
    [[nodiscard]] Result<Rect> frame(const WindowElement& window) const;
    [[nodiscard]] Rect frame(const WindowSnapshot& snapshot) const;
    /// The visible frame of the display that the frame is meant for.
    [[nodiscard]] Rect visibleFrame(const Rect& meant) const;
    void send(const WindowElement& window, const WindowSnapshot& now, WindowGoal goal);

    xdg::DesktopRunningApplications& applications_;
    const RandrScreens& screens_;
    std::unique_ptr<Access> access_;
};

}
