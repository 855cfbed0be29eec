/// The applications that run: the window manager's windows gathered by desktop entry, and the
/// launches under way.
#pragma once

#include "Applications/ClientWindows/AppGroups.hpp"
#include "Applications/ClientWindows/ClientList.hpp"
#include "Applications/ClientWindows/HiddenWindows.hpp"
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/Launching/LaunchTracker.hpp"
#include "Applications/Launching/StartupMessenger.hpp"
#include "Applications/WindowIconSource.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/RunLoop.hpp"
#include "Platform/RunningApplications.hpp"
#include "X11/X11Connection.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace vireline::x11 {

class EwmhRunningApplications final : public RunningApplications, public WindowIconSource {
public:
    EwmhRunningApplications(X11Connection& connection, RunLoop& runLoop,
                            DesktopEntryCatalog& catalog);
    EwmhRunningApplications(const EwmhRunningApplications&) = delete;
    EwmhRunningApplications& operator=(const EwmhRunningApplications&) = delete;
    EwmhRunningApplications(EwmhRunningApplications&&) = delete;
    EwmhRunningApplications& operator=(EwmhRunningApplications&&) = delete;
    ~EwmhRunningApplications() override = default;

    [[nodiscard]] std::vector<RunningApplication> running() const override;
    /// One at most: what has one identifier is one app here.
    [[nodiscard]] std::vector<RunningApplication>
    instances(const std::string& bundleID) const override;
    /// Iconifies the windows that the app shows on the current desktop.
    void hide(const RunningApplication& app) override;
    /// Closes the app's windows as their close buttons would.
    void terminate(const RunningApplication& app) override;
    [[nodiscard]] Subscription observeWillLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidTerminate(Handler handler) override;

    [[nodiscard]] std::vector<WindowIcon> windowIcons(const std::string& bundleID) const override;

    /// Restores what `hide` iconified, shows the desktop of the window that was active last, and
    /// activates that. False when the app does not run.
    bool bringForward(const std::string& bundleID);

    /// The desktop that is shown, or will be once the window manager has done what was asked of it;
    /// nothing when it does not say.
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const;

    /// The window was sent to the desktop that is shown: bringing its app forward must not go to
    /// the one that it came from.
    void expectOnCurrentDesktop(xcb_window_t window);

    /// Announces a launch of ours. With `tellsOthers` the other programs on the display hear of it
    /// too, and of its end if the app says nothing itself.
    void launchBegan(const std::string& startupID, const DesktopEntry& entry,
                     const std::string& bundleID, bool tellsOthers);
    /// Whether the app is being launched: until the launch is over, and for a double click's length
    /// after it began.
    [[nodiscard]] bool isLaunching(const std::string& bundleID, double doubleClickSeconds) const {
        return launches_.isUnderWay(bundleID, doubleClickSeconds);
    }
    /// The launch came to nothing. False when it had ended before, as with a program that showed a
    /// window and ends with an error later.
    bool launchFailed(const std::string& startupID);

    /// The app's windows in the window manager's order; empty when it does not run.
    [[nodiscard]] std::vector<ClientWindow> windows(const std::string& bundleID) const;

private:
    struct Identification {
        WindowTraits traits;
        std::int32_t processIdentifier = 0;
        IdentifiedApp app;
    };

    void update();
    void identifyAnew();
    void announce(const std::vector<AppGroup>& before);
    void handle(const StartupMessage& message);
    [[nodiscard]] std::vector<AppGroup> currentGroups();
    [[nodiscard]] IdentifiedApp identify(const ClientWindow& window);
    [[nodiscard]] std::optional<IdentifiedApp> appNamedBy(const StartupMessage& message) const;
    [[nodiscard]] RunningApplication describe(const AppGroup& group) const;
    [[nodiscard]] const AppGroup* groupOf(const RunningApplication& app) const;
    void noteDesktops();
    void showDesktopOf(const ClientWindow& window);
    void iconify(xcb_window_t window) const;
    void activate(xcb_window_t window) const;
    void close(xcb_window_t window) const;

    X11Connection& connection_;
    RunLoop& runLoop_;
    DesktopEntryCatalog& catalog_;
    ClientList clients_;
    StartupMessenger messenger_;
    LaunchTracker launches_;
    std::unordered_map<xcb_window_t, Identification> identified_;
    std::vector<AppGroup> groups_;
    HiddenWindows hidden_;
    /// Asked of the window manager at `since`, and not reported yet.
    struct Request {
        std::uint32_t value = 0;
        double since = 0;
    };
    /// The desktop to be shown, and the window to be sent to the one that is shown.
    std::optional<Request> desktopAskedFor_;
    std::optional<Request> windowSentHere_;
    /// The desktop that was shown when the first of the two was asked for.
    std::optional<std::uint32_t> desktopBefore_;
    /// Launches that other programs were told of.
    std::vector<std::string> announced_;
    CallbackList<std::optional<RunningApplication>> willLaunch_;
    CallbackList<std::optional<RunningApplication>> didLaunch_;
    CallbackList<std::optional<RunningApplication>> didTerminate_;
    Subscription catalogChanges_;
    Lifetime lifetime_;
};

}
