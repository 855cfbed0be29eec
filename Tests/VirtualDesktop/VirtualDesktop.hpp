/// A complete headless desktop: X server, monitors, window manager and the rest of a session, a
/// fresh home folder, and the program. Everything ends with its owner, and any number of desktops
/// can run at the same time.
#pragma once

#include "VirtualDesktop/Buses/AccessibleEvents.hpp"
#include "VirtualDesktop/Buses/AccessibleTree.hpp"
#include "VirtualDesktop/Buses/NotifierHost.hpp"
#include "VirtualDesktop/Compositors/CompositorSession.hpp"
#include "VirtualDesktop/Docks/DockLayout.hpp"
#include "VirtualDesktop/Docks/DockWindows.hpp"
#include "VirtualDesktop/Processes/ChildProcess.hpp"
#include "VirtualDesktop/Processes/ProgramLog.hpp"
#include "VirtualDesktop/Screen/Monitors.hpp"
#include "VirtualDesktop/Screen/Outputs.hpp"
#include "VirtualDesktop/Screen/Picture.hpp"
#include "VirtualDesktop/Screen/Pointer.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"
#include "VirtualDesktop/Session/Home.hpp"
#include "VirtualDesktop/Session/WindowManagers.hpp"
#include "VirtualDesktop/Session/XServer.hpp"

#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

class SwaySession;

/// The paths of the programs that the harness runs.
struct Programs {
    std::filesystem::path vireline;
    std::filesystem::path testApp;
    std::filesystem::path fileManager;
    std::filesystem::path notifierHost{}; // NOLINT(readability-redundant-member-init)
    /// Preloaded into window managers that need an output for each monitor.
    std::filesystem::path monitorOutputs{}; // NOLINT(readability-redundant-member-init)
    /// A panel for Wayland desktops.
    std::filesystem::path waylandPanel{}; // NOLINT(readability-redundant-member-init)
};

class VirtualDesktop {
public:
    using Manager = WindowManager;

    struct Options {
        /// The first is primary. Empty means the server's own single display.
        std::vector<Monitor> monitors{};
        bool windowManager = true;
        /// Openbox if unset.
        std::optional<Manager> manager{};
        /// Whether the window manager composites, if it supports that.
        bool managerComposites = false;
        /// Whether to run a compositor besides the window manager.
        bool compositor = false;
        bool sessionBus = false;
        /// Whether programs support assistive technology; this includes the session bus that they
        /// need for it.
        bool accessibility = false;
        bool randr = true;
        /// Whether KWin lists windows for the program, which needs an installed desktop entry.
        bool isPermitted = true;
        /// Whether the X server has a real output for each monitor; they are named by `outputName`.
        bool outputs = false;
        /// Whether the apps installed on this computer are available besides the home folder's.
        bool installedApps = false;
        /// Pixels per point, for monitors where that is not 1.
        std::map<std::string, double> scales{};
        /// The size of the X screen, which must contain all monitors that a test attaches.
        int width = 4096;
        int height = 2304;
    };

    VirtualDesktop(Programs programs, const Options& options);

    [[nodiscard]] const Programs& programs() const noexcept { return programs_; }
    [[nodiscard]] Home& home() noexcept { return home_; }
    [[nodiscard]] const XClient& client() const noexcept { return *client_; }
    [[nodiscard]] DockWindows docks() const { return DockWindows{*client_, session_.get()}; }
    [[nodiscard]] Pointer pointer() const { return Pointer{*client_}; }
    [[nodiscard]] Keyboard keyboard() const { return Keyboard{*client_}; }
    [[nodiscard]] ProgramLog log() const { return ProgramLog{home_.log()}; }
    [[nodiscard]] const Displays& displays() const noexcept { return displays_; }
    [[nodiscard]] const std::string& display() const noexcept { return server_.display(); }

    /// Whether it is a Wayland desktop.
    [[nodiscard]] bool isWayland() const noexcept { return session_ != nullptr; }

    /// The environment for programs on this desktop; tests may add to it before they start one.
    [[nodiscard]] Environment& environment() noexcept { return environment_; }

    /// The X server's process.
    [[nodiscard]] pid_t server() const { return server_.pid(); }

    /// The session bus's process, which is also the session leader of what it starts; 0 without
    /// one.
    [[nodiscard]] pid_t sessionBus() const { return bus_ ? bus_->pid() : 0; }

    /// Ends the Wayland compositor abruptly.
    void killWaylandCompositor() const { session_->kill(); }

    /// Ends the X server abruptly; afterwards the desktop cannot be used any more.
    void stopServer() { server_.stop(); }

    void setMonitors(const std::vector<Monitor>& monitors);
    [[nodiscard]] const Monitor& monitor(const std::string& name) const;
    [[nodiscard]] std::uint32_t displayIDOf(const std::string& monitor) const;

    void startWindowManager();
    void stopWindowManager();
    /// Replaces the running window manager by another one.
    void replaceWindowManager(Manager manager);
    void startCompositor();
    void stopCompositor() { compositor_.reset(); }
    /// Its process; 0 without one.
    [[nodiscard]] pid_t compositor() const { return compositor_ ? compositor_->pid() : 0; }

    /// Adds another program's panel at an edge of a monitor, which reserves its thickness.
    void reserve(const Reservation& reservation);
    /// On a Wayland desktop, runs a panel at an edge of a monitor with these additional arguments,
    /// and waits until it can be seen.
    ChildProcess& runPanel(const Reservation& place, const std::vector<std::string>& arguments);
    /// Removes all such panels.
    void endReservations();

    /// Starts the program under test without waiting.
    ChildProcess& startVireline();
    /// Starts it through another program, which gets the program's path as its last argument and
    /// must exec it.
    ChildProcess& startVirelineThrough(std::vector<std::string> command);
    /// Starts it and waits until it has planned its docks; throws on failure.
    void runVireline();
    [[nodiscard]] ChildProcess& vireline();
    void stopVireline() { vireline_.reset(); }

    /// Starts an app as from a terminal, without notifying the dock.
    ChildProcess& launch(const App& app, std::vector<std::string> arguments = {});
    /// Starts any program on this desktop.
    ChildProcess& run(const std::string& program, std::vector<std::string> arguments);
    /// Starts a panel with status notifier items, which may keep them without showing them until
    /// told to. Needs the session bus.
    NotifierHost startNotifierHost(bool showsItems = true);
    /// Ends that panel.
    void stopNotifierHost() { notifierHost_.reset(); }
    void stopSessionBus() { bus_.reset(); }

    /// The controls in windows. Only with accessibility.
    [[nodiscard]] AccessibleTree controls() const { return AccessibleTree{accessibilityAddress_}; }
    /// The accessibility events from now on. Only with accessibility.
    [[nodiscard]] AccessibleEvents accessibleEvents() const {
        return AccessibleEvents{accessibilityAddress_};
    }

    /// Starts the service that shows files on the session bus; returns the file with its calls.
    std::filesystem::path startFileManagerService();

    // Under sway, windows are known by its own IDs. Under KWin, they are not known.

    /// The app's managed windows, visible or not.
    [[nodiscard]] std::vector<xcb_window_t> windowsOf(const App& app) const;
    /// The app's windows that the user can see: managed and not hidden.
    [[nodiscard]] std::vector<xcb_window_t> visibleWindowsOf(const App& app) const;
    /// The visible windows with this title.
    [[nodiscard]] std::vector<xcb_window_t> windowsTitled(std::string_view title) const;
    [[nodiscard]] bool isActive(const App& app) const;
    [[nodiscard]] xcb_window_t activeWindow() const;
    /// Without the window manager's decoration; nullopt if the window is gone.
    [[nodiscard]] std::optional<PixelRect> frameOf(xcb_window_t window) const;
    /// Moves the window as a pager or a shortcut would.
    void moveWindow(xcb_window_t window, PixelPoint corner) const;
    /// Under sway, makes the app's windows open where these arguments of the test app
    /// say, since programs cannot choose that. `launch` does so itself.
    void placeWindowsOf(const App& app, const std::vector<std::string>& arguments) const;
    /// Closes the window as its close button would.
    void closeWindow(xcb_window_t window) const;
    /// Marks the window as one that demands attention, as toolkits do.
    void demandAttention(xcb_window_t window) const;
    /// Whether keys go to a menu or a drag instead of the active window.
    [[nodiscard]] bool isKeyboardTaken() const;

    /// The expected docks for these tiles and settings.
    [[nodiscard]] std::vector<PlannedDock> planned(const PanelPlanner::Request& request) const;

    [[nodiscard]] Colour pixel(PixelPoint place) const;
    [[nodiscard]] Picture picture(const PixelRect& area) const {
        return Picture::ofScreen(*client_, area);
    }

    /// Saves a screenshot and all logs under this name in `folder`.
    void leaveEvidence(const std::filesystem::path& folder, const std::string& name) const;

private:
    [[nodiscard]] Environment sessionEnvironment() const;
    /// Starts a bus at `socket` for programs with this environment; returns its address.
    [[nodiscard]] static std::string startBus(std::optional<ChildProcess>& bus,
                                              const std::filesystem::path& socket,
                                              const Environment& environment);
    void startSession(const Options& options);
    void startPanel(const Reservation& reservation);
    /// The windows for which `matches` is true.
    template <class Condition>
    [[nodiscard]] std::vector<xcb_window_t> swayWindows(const Condition& matches) const;
    void startSessionBus();
    void startAccessibilityBus();
    [[nodiscard]] Environment managerEnvironment();
    void startWindowManager(const ManagerOptions& options);
    void requireCompositor() const;
    void requireDesktops();

    Programs programs_;
    Home home_;
    XServer server_;
    std::unique_ptr<XClient> client_;
    Displays displays_;
    Environment environment_;
    Manager manager_;
    bool managerComposites_;
    bool hasOutputs_;
    /// The compositor of a Wayland desktop.
    std::unique_ptr<CompositorSession> session_;
    /// The same if it is sway, which tells more than others; null otherwise.
    const SwaySession* sway_ = nullptr;
    std::optional<ChildProcess> bus_;
    std::optional<ChildProcess> accessibilityBus_;
    std::string accessibilityAddress_;
    std::optional<ChildProcess> notifierHost_;
    std::optional<ChildProcess> managerBus_;
    std::optional<ChildProcess> windowManager_;
    std::optional<ChildProcess> compositor_;
    std::list<ChildProcess> panels_;
    std::list<ChildProcess> apps_;
    std::optional<ChildProcess> vireline_;
};

}
