/// The running applications: all programs' windows, grouped by desktop entry, plus pending
/// launches.
#pragma once

#include "Applications/ClientWindows/AppGroups.hpp"
#include "Applications/ClientWindows/HiddenWindows.hpp"
#include "Applications/ClientWindows/WindowIconSource.hpp"
#include "Applications/ClientWindows/WindowList.hpp"
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/Launching/LaunchTracker.hpp"
#include "Applications/Launching/StartupNotices.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Applications/RunningApplications.hpp"
#include "Platform/RunLoop.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vireline::xdg {

class DesktopRunningApplications final : public RunningApplications,
                                         public WindowIconSource,
                                         private NonCopyable {
public:
    /// `windowList` and `notices` are the window system's; they must outlive this object.
    DesktopRunningApplications(WindowList& windowList, StartupNotices& notices, RunLoop& runLoop,
                               DesktopEntryCatalog& catalog);

    [[nodiscard]] std::vector<RunningApplication> running() const override;
    /// At most one, because windows with the same identifier are one app here.
    [[nodiscard]] std::vector<RunningApplication>
    instances(const std::string& bundleID) const override;
    /// Iconifies the app's windows on the current desktop.
    void hide(const RunningApplication& app) override;
    /// Closes the app's windows the way their close buttons do.
    void terminate(const RunningApplication& app) override;
    [[nodiscard]] AppAttention attention() const override { return attention_; }
    [[nodiscard]] Subscription observeAttention(std::function<void()> handler) override {
        return attentionChanges_.add(std::move(handler));
    }
    [[nodiscard]] Subscription observeWillLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidTerminate(Handler handler) override;

    [[nodiscard]] std::vector<WindowIcon> windowIcons(const std::string& bundleID) const override;

    /// Restores what `hide` iconified, switches to the desktop of the most recently active window
    /// and activates that window. Returns false if the app is not running.
    bool bringForward(const std::string& bundleID);

    /// As `bringForward`, but only this window of the app. Returns false if it is gone.
    bool bringWindowForward(WindowID window);

    /// An app's window, as its menu lists it.
    struct TitledWindow {
        WindowID id = WindowID::none;
        std::string title;
        bool isActive = false;
    };
    /// The app's ordinary windows, hidden ones included, most recently active first.
    [[nodiscard]] std::vector<TitledWindow> titledWindows(const std::string& bundleID) const;

    /// The current desktop, or the one that was requested and will be current soon; nullopt if the
    /// window manager does not say.
    [[nodiscard]] std::optional<std::uint32_t> currentDesktop() const;

    /// Call when the window was sent to the current desktop, so that bringing its app forward does
    /// not switch to the desktop it came from.
    void expectOnCurrentDesktop(WindowID window);

    /// Announces one of our launches. With `tellsOthers` it is broadcast to the other programs on
    /// the display, and so is its end if the app does not report that itself.
    void launchBegan(const std::string& startupID, const DesktopEntry& entry,
                     const std::string& bundleID, bool tellsOthers);
    /// Whether the app is being launched: until the launch ends, and at least for a double click's
    /// duration after it began.
    [[nodiscard]] bool isLaunching(const std::string& bundleID, double doubleClickSeconds) const {
        return launches_.isUnderWay(bundleID, doubleClickSeconds);
    }
    /// Reports that the launch failed. Returns false if it had already ended, for example if the
    /// program showed a window and later exited with an error.
    bool launchFailed(const std::string& startupID);

    /// The app's windows in the window manager's order; empty if it is not running.
    [[nodiscard]] std::vector<ClientWindow> windows(const std::string& bundleID) const;

private:
    struct Identification {
        WindowTraits traits;
        std::int32_t processIdentifier = 0;
        IdentifiedApp app;
    };

    void update();
    void identifyAgain();
    void announce(const std::vector<AppGroup>& before);
    void noteAttention();
    void handle(const StartupMessage& message);
    void launchChanged(const LaunchTracker::Change& change);
    [[nodiscard]] std::vector<AppGroup> currentGroups();
    [[nodiscard]] IdentifiedApp identify(const ClientWindow& window);
    [[nodiscard]] std::optional<IdentifiedApp> appNamedBy(const StartupMessage& message) const;
    [[nodiscard]] RunningApplication describe(const AppGroup& group) const;
    [[nodiscard]] const AppGroup* groupOf(const RunningApplication& app) const;
    void noteDesktops();
    void showDesktopOf(const ClientWindow& window);

    WindowList& windows_;
    StartupNotices& notices_;
    RunLoop& runLoop_;
    DesktopEntryCatalog& catalog_;
    LaunchTracker launches_;
    std::unordered_map<WindowID, Identification> identified_;
    std::vector<AppGroup> groups_;
    HiddenWindows hidden_;
    /// A desktop that was requested from the window manager at `since`.
    struct DesktopRequest {
        std::uint32_t desktop = 0;
        double since = 0;
    };
    /// A window that was sent to the current desktop at `since`.
    struct SentWindow {
        WindowID window = WindowID::none;
        double since = 0;
    };
    /// Both are set until the window manager has reported the result.
    std::optional<DesktopRequest> requestedDesktop_;
    std::optional<SentWindow> windowSentToCurrentDesktop_;
    /// The current desktop at the time of the request in `requestedDesktop_`.
    std::optional<std::uint32_t> desktopBefore_;
    /// Launches that were broadcast to other programs.
    std::vector<std::string> announced_;
    AppAttention attention_;
    CallbackList<> attentionChanges_;
    CallbackList<std::optional<RunningApplication>> willLaunch_;
    CallbackList<std::optional<RunningApplication>> didLaunch_;
    CallbackList<std::optional<RunningApplication>> didTerminate_;
    Subscription windowChanges_;
    Subscription messages_;
    Subscription catalogChanges_;
    Lifetime lifetime_;
};

}
