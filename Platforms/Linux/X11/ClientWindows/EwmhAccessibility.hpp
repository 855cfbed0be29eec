/// Other programs' windows, moved through the window manager as pagers and taskbars do (EWMH). The
/// permission counts as granted exactly while a window manager supports that.
#pragma once

#include "Applications/ClientAccessibility.hpp"
#include "ClientWindows/ManagerNotice.hpp"
#include "ClientWindows/WindowKeeper.hpp"
#include "ClientWindows/WindowReader.hpp"
#include "Connection/SideConnection.hpp"

#include <functional>
#include <memory>

namespace vireline::x11 {

class RandrScreens;

class EwmhAccessibility final : public xdg::ClientAccessibility {
public:
    EwmhAccessibility(X11Connection& connection, RunLoop& runLoop,
                      xdg::DesktopRunningApplications& applications, const RandrScreens& screens);

    [[nodiscard]] bool canMoveWindows() const override;
    [[nodiscard]] Subscription observeManager(std::function<void()> handler) override;
    Result<void> setPosition(AccessibilityElement& window, Point position) override;
    Result<void> setSize(AccessibilityElement& window, Size size) override;

private:
    /// Created once the server has accepted the connection, and then kept.
    struct Access {
        Access(std::unique_ptr<SideConnection> opened, X11Connection& connection, RunLoop& runLoop,
               const RandrScreens& screens);

        std::unique_ptr<SideConnection> side;
        WindowReader reader;
        WindowKeeper keeper;
        ManagerNotice notice;
    };

    [[nodiscard]] Result<WindowSnapshot> look(const WindowElement& window) const;
    [[nodiscard]] Result<Rect> frame(const WindowElement& window) const override;
    [[nodiscard]] Rect frame(const WindowSnapshot& snapshot) const;
    /// The visible frame of the display that the frame is meant for.
    [[nodiscard]] Rect visibleFrame(const Rect& meant) const;
    void send(const WindowElement& window, const WindowSnapshot& now, WindowGoal goal);

    const RandrScreens& screens_;
    std::unique_ptr<Access> access_;
};

}
