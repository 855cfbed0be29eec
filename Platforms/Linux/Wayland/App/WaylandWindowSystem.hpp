/// Wayland as the platform's window system. Owns everything that exists once per connection.
#pragma once

#include "App/Absent.hpp"
#include "App/WaylandWords.hpp"
#include "Connection/OwnConnection.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Displays/WaylandScreens.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Input/Seat.hpp"
#include "Session/ActivationTokens.hpp"
#include "WindowSystem/WindowSystem.hpp"

#include <memory>
#include <string>

namespace vireline {
class RunLoop;
}

namespace vireline::wayland {

class PointerMenu;
class WindowPlacer;

class WaylandWindowSystem final : public xdg::WindowSystem, private NonCopyable {
public:
    /// Needs the running QApplication. The arguments must outlive this object.
    WaylandWindowSystem(xdg::SecondStarts& secondStarts, RunLoop& runLoop);
    ~WaylandWindowSystem() override;

    [[nodiscard]] xdg::SecondStarts& secondStarts() override { return secondStarts_; }
    [[nodiscard]] xdg::SettingsDaemon& settings() override { return settings_; }
    [[nodiscard]] xdg::WindowList& windows() override { return *windows_; }
    [[nodiscard]] xdg::StartupNotices& startupNotices() override { return activationTokens_; }
    [[nodiscard]] Screens& screens() override { return screens_; }
    [[nodiscard]] PointerTaps& pointerTaps() override { return pointerTaps_; }
    [[nodiscard]] std::unique_ptr<PanelWindows>
    makePanelWindows(xdg::Appearance& appearance) override;
    [[nodiscard]] std::unique_ptr<Accessibility>
    makeAccessibility(xdg::DesktopRunningApplications& applications) override;
    [[nodiscard]] std::unique_ptr<xdg::SystemTray> makeTray() override;
    void openAtPointer(QMenu& menu) override;
    void adapt(DesktopWords& words) const override { WaylandWords::adapt(words); }
    void bringToFront(QWindow& window) override;

private:
    [[nodiscard]] std::unique_ptr<WindowPlacer> placer();

    xdg::SecondStarts& secondStarts_;
    RunLoop& runLoop_;
    /// Qt's connection, for menus and the program's windows.
    WaylandConnection connection_;
    /// Our own connection, for the docks.
    std::unique_ptr<OwnConnection> own_;
    Seat seat_{*own_};
    /// Empty under other compositors.
    std::string swaySocket_;
    NoSettingsDaemon settings_;
    std::unique_ptr<xdg::WindowList> windows_;
    ActivationTokens activationTokens_;
    WaylandScreens screens_{connection_, swaySocket_};
    NoPointerTaps pointerTaps_;
    /// The menu that is open at the pointer.
    std::unique_ptr<PointerMenu> pointerMenu_;
};

}
