/// X11 as the platform's window system. Owns everything that exists once per connection.
#pragma once

#include "Applications/EwmhWindowList.hpp"
#include "Applications/StartupMessenger.hpp"
#include "Connection/X11Connection.hpp"
#include "Displays/RandrScreens.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Pointer/XInputPointerTaps.hpp"
#include "Settings/XSettingsDaemon.hpp"
#include "WindowSystem/WindowSystem.hpp"

#include <memory>

namespace vireline {
class RunLoop;
}

namespace vireline::x11 {

class X11WindowSystem final : public xdg::WindowSystem, private NonCopyable {
public:
    /// Needs the running QApplication. The arguments must outlive this object.
    X11WindowSystem(xdg::SecondStarts& secondStarts, RunLoop& runLoop);

    [[nodiscard]] xdg::SecondStarts& secondStarts() override { return secondStarts_; }
    [[nodiscard]] xdg::SettingsDaemon& settings() override { return settings_; }
    [[nodiscard]] xdg::WindowList& windows() override { return windows_; }
    [[nodiscard]] xdg::StartupNotices& startupNotices() override { return startupMessenger_; }
    [[nodiscard]] Screens& screens() override { return screens_; }
    [[nodiscard]] PointerTaps& pointerTaps() override { return pointerTaps_; }
    [[nodiscard]] std::unique_ptr<PanelWindows>
    makePanelWindows(xdg::Appearance& appearance) override;
    [[nodiscard]] std::unique_ptr<Accessibility>
    makeAccessibility(xdg::DesktopRunningApplications& applications) override;
    [[nodiscard]] std::unique_ptr<xdg::SystemTray> makeTray() override;
    void openAtPointer(QMenu& menu) override;
    void bringToFront(QWindow& window) override { bringToFront(connection_, window); }

    static void bringToFront(const X11Connection& connection, const QWindow& window);

private:
    xdg::SecondStarts& secondStarts_;
    RunLoop& runLoop_;
    X11Connection connection_;
    XSettingsDaemon settings_{connection_};
    EwmhWindowList windows_{connection_, runLoop_};
    StartupMessenger startupMessenger_{connection_};
    RandrScreens screens_{connection_};
    XInputPointerTaps pointerTaps_{screens_};
};

}
