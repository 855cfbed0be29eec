/// What the platform needs from the window system under which the desktop runs. Everything that
/// only a window system can know or do is behind this class, or behind the classes that it returns.
#pragma once

#include <memory>

class QMenu;
class QWindow;

namespace vireline {
class Accessibility;
class PanelWindows;
class PointerTaps;
class Screens;
struct DesktopWords;
}

namespace vireline::xdg {

class Appearance;
class DesktopRunningApplications;
class SecondStarts;
class SettingsDaemon;
class StartupNotices;
class SystemTray;
class WindowList;

class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    /// Further starts of the program while this instance runs, which guards against a second one.
    [[nodiscard]] virtual SecondStarts& secondStarts() = 0;

    [[nodiscard]] virtual SettingsDaemon& settings() = 0;

    /// All programs' windows.
    [[nodiscard]] virtual WindowList& windows() = 0;
    [[nodiscard]] virtual StartupNotices& startupNotices() = 0;

    /// The displays, and the space that other programs reserve at their edges.
    [[nodiscard]] virtual Screens& screens() = 0;
    [[nodiscard]] virtual PointerTaps& pointerTaps() = 0;

    /// Makes the docks' windows. Besides showing the pixels and regions of a `PanelPicture`, they
    /// pace frames, report the pointer and drops to the view, and open menus.
    [[nodiscard]] virtual std::unique_ptr<PanelWindows>
    makePanelWindows(Appearance& appearance) = 0;

    /// Moves other programs' windows.
    [[nodiscard]] virtual std::unique_ptr<Accessibility>
    makeAccessibility(DesktopRunningApplications& applications) = 0;

    /// Null if the window system has no tray of its own.
    [[nodiscard]] virtual std::unique_ptr<SystemTray> makeTray() = 0;

    /// Opens a filled menu beside the pointer.
    virtual void openAtPointer(QMenu& menu) = 0;

    /// Replaces the words that are different under this window system.
    virtual void adapt(DesktopWords& /*words*/) const {}

    /// Raises one of the program's windows above the windows of all programs and gives it the
    /// focus.
    virtual void bringToFront(QWindow& window) = 0;
};

}
