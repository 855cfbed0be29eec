/// X11 as the platform's window system. Owns everything that exists once per connection.
#pragma once

#include "Applications/ClientWindows/EwmhWindowList.hpp"
#include "Applications/Launching/StartupMessenger.hpp"
#include "Displays/RandrScreens.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Pointer/XInputPointerTaps.hpp"
#include "Settings/XSettingsDaemon.hpp"
#include "WindowSystem/WindowSystem.hpp"
#include "X11/X11Connection.hpp"

#include <memory>

namespace vireline {
class RunLoop;
}

namespace vireline::x11 {

class X11WindowSystem final : public WindowSystem, private NonCopyable {
public:
    /// Needs the running QApplication. The arguments must outlive this object.
    X11WindowSystem(SecondStarts& secondStarts, RunLoop& runLoop);

    [[nodiscard]] SecondStarts& secondStarts() override { return secondStarts_; }
    [[nodiscard]] SettingsDaemon& settings() override { return settings_; }
    [[nodiscard]] WindowList& windows() override { return windows_; }
    [[nodiscard]] StartupNotices& startupNotices() override { return startupMessenger_; }
    [[nodiscard]] Screens& screens() override { return screens_; }
    [[nodiscard]] PointerTaps& pointerTaps() override { return pointerTaps_; }
    [[nodiscard]] std::unique_ptr<PanelWindows> makePanelWindows(Appearance& appearance) override;
    [[nodiscard]] std::unique_ptr<Accessibility>
    makeAccessibility(DesktopRunningApplications& applications) override;
    [[nodiscard]] std::unique_ptr<SystemTray> makeTray() override;
    void openAtPointer(QMenu& menu) override;
    void bringToFront(QWindow& window) override { bringToFront(connection_, window); }

    static void bringToFront(const X11Connection& connection, const QWindow& window);

private:
    SecondStarts& secondStarts_;
    RunLoop& runLoop_;
    X11Connection connection_;
    XSettingsDaemon settings_{connection_};
    EwmhWindowList windows_{connection_, runLoop_};
    StartupMessenger startupMessenger_{connection_};
    RandrScreens screens_{connection_};
    XInputPointerTaps pointerTaps_{screens_};
};

}
