/// The virtual desktop of a soak, and what is known to be so on it: which apps are pinned and
/// which run, and with which settings the program was last seen to save.
#pragma once

#include "Settings/Settings.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace vireline::desktop {

/// Something is not as it has to be, whatever happened before.
class Violation : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class SoakWorld {
public:
    /// `through` is a command that the program is run by, such as a memory checker; may be empty.
    SoakWorld(Programs programs, unsigned seed, std::vector<std::string> through);

    [[nodiscard]] VirtualDesktop& desktop() noexcept { return *desktop_; }

    /// A number from 0 to below `count`.
    [[nodiscard]] std::size_t any(std::size_t count);
    /// True once in `times`.
    [[nodiscard]] bool onceIn(std::size_t times) { return any(times) == 0; }

    [[nodiscard]] const std::vector<App>& apps() const noexcept { return apps_; }

    // The program.

    /// Starts it, and waits for its docks.
    void start();
    /// Shows its settings, with the keyboard's focus, as a second start does.
    void openSettings();
    /// A notch of the wheel over them; they have the focus.
    void scrollSettings();
    /// Whether they are what is seen there.
    [[nodiscard]] bool areSettingsAt(PixelPoint place) const;
    void closeSettings();
    /// Quits it with its key, which it has to follow in good order.
    void end();
    /// Ends it as a crash or a power cut does.
    void kill();

    /// What it saved last, as the file was when somebody last looked at it.
    [[nodiscard]] const Settings& settings() const noexcept { return settings_; }
    /// Takes over what it saves, as soon as that is as expected.
    void awaitSave(const std::function<bool(const Settings&)>& isExpected);
    /// The file holds what is not the program's: until it saves again or starts, nothing is known.
    void replaceFile(const std::string& content);
    [[nodiscard]] bool isFileReplaced() const noexcept { return replacement_.has_value(); }

    /// The session bus; without it nobody is told where the settings' controls are.
    void loseBus();
    [[nodiscard]] bool hasBus() const noexcept { return hasBus_; }

    // Apps.

    /// Starts the app as from a terminal, and waits until it has windows.
    void launch(const App& app);
    /// Ends the processes that its windows belong to.
    void quit(const App& app, int signal);
    /// Stops it, so that it answers nobody, until `endSuspensions`.
    void suspend(const App& app);
    void endSuspensions();
    void endApps();

    /// Whether it has windows, shown or not.
    [[nodiscard]] bool isRunning(const App& app) const;
    [[nodiscard]] std::vector<App> running() const;
    [[nodiscard]] std::vector<App> notRunning() const;

    /// The pinned list that the desktop's own dock keeps, by identifier.
    void pin(const std::vector<std::string>& ids);
    [[nodiscard]] std::vector<std::string> mirrored() const { return mirrored_; }
    /// The pinned list in force.
    [[nodiscard]] std::vector<App> pinned() const;
    [[nodiscard]] std::vector<App> runningUnpinned() const;

    // The screen.

    void setMonitors(std::size_t arrangement);
    [[nodiscard]] static std::size_t arrangementCount();

    /// The plan for what is so.
    [[nodiscard]] PanelPlanner::Request request() const;
    /// A dock that should be there; nothing when there should be none.
    [[nodiscard]] std::optional<PlannedDock> anyDock();
    /// Where its tiles are.
    [[nodiscard]] DockLayout layout(const PlannedDock& dock) const;
    /// Takes the pointer to a display without a dock.
    void parkPointer();

private:
    [[nodiscard]] bool isSettings(xcb_window_t window) const;
    [[nodiscard]] bool areSettingsOpen() const;
    [[nodiscard]] std::set<pid_t> processesOf(const App& app) const;
    [[nodiscard]] std::vector<App> pinnedOf(const std::vector<std::string>& ids) const;

    std::mt19937 random_;
    std::vector<App> apps_;
    std::vector<std::string> through_;
    std::unique_ptr<VirtualDesktop> desktop_;
    Settings settings_;
    /// What the file holds in place of settings that the program saved.
    std::optional<std::string> replacement_;
    bool hasBus_ = true;
    std::vector<std::string> mirrored_;
    std::set<pid_t> suspended_;
};

}
