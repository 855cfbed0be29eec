/// The virtual desktop of a soak and its expected state: the pinned and the running apps, and the
/// settings last saved.
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

/// Thrown when an invariant does not hold.
class Violation : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class SoakWorld {
public:
    /// `through` is a command that runs the program, such as a memory checker; may be empty.
    SoakWorld(Programs programs, unsigned seed, std::vector<std::string> through);

    [[nodiscard]] VirtualDesktop& desktop() noexcept { return *desktop_; }

    /// A random number from 0 to `count` - 1.
    [[nodiscard]] std::size_t any(std::size_t count);
    /// True with a probability of 1 in `times`.
    [[nodiscard]] bool onceIn(std::size_t times) { return any(times) == 0; }

    [[nodiscard]] const std::vector<App>& apps() const noexcept { return apps_; }

    // The program.

    /// Starts it, and waits for its docks.
    void start();
    /// Shows the settings with keyboard focus, as a second start does.
    void openSettings();
    /// Turns the wheel by one notch over the settings, which must have the focus.
    void scrollSettings();
    /// Whether the settings window is visible at this position.
    [[nodiscard]] bool areSettingsAt(PixelPoint place) const;
    void closeSettings();
    /// Quits it with its shortcut; throws unless it exits cleanly.
    void end();
    /// Kills it, as a crash or power failure would.
    void kill();

    /// The settings in the file when it was last read.
    [[nodiscard]] const Settings& settings() const noexcept { return settings_; }
    /// Waits until the saved settings are as expected, and adopts them.
    void awaitSave(const std::function<bool(const Settings&)>& isExpected);
    /// Replaces the preferences file; the settings are unknown until the program saves or starts
    /// again.
    void replaceFile(const std::string& content);
    [[nodiscard]] bool isFileReplaced() const noexcept { return replacement_.has_value(); }

    /// Ends the session bus; afterwards the settings' controls cannot be located.
    void loseBus();
    [[nodiscard]] bool hasBus() const noexcept { return hasBus_; }

    // Apps.

    /// Starts the app as from a terminal, and waits until it has windows.
    void launch(const App& app);
    /// Sends a signal to the processes of its windows.
    void quit(const App& app, int signal);
    /// Suspends it, so that it does not respond until `endSuspensions`.
    void suspend(const App& app);
    void endSuspensions();
    void endApps();

    /// Whether it has windows, visible or not.
    [[nodiscard]] bool isRunning(const App& app) const;
    [[nodiscard]] std::vector<App> running() const;
    [[nodiscard]] std::vector<App> notRunning() const;

    /// Writes the pinned list of the desktop's own dock, by identifier.
    void pin(const std::vector<std::string>& ids);
    [[nodiscard]] std::vector<std::string> mirrored() const { return mirrored_; }
    /// The current pinned list.
    [[nodiscard]] std::vector<App> pinned() const;
    [[nodiscard]] std::vector<App> runningUnpinned() const;

    // The screen.

    void setMonitors(std::size_t arrangement);
    [[nodiscard]] static std::size_t arrangementCount();

    /// The plan for the current state.
    [[nodiscard]] PanelPlanner::Request request() const;
    /// One of the expected docks; nullopt if there should be none.
    [[nodiscard]] std::optional<PlannedDock> anyDock();
    /// The positions of its tiles.
    [[nodiscard]] DockLayout layout(const PlannedDock& dock) const;
    /// Moves the pointer to a display without a dock.
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
    /// The file's content if it is not what the program saved.
    std::optional<std::string> replacement_;
    bool hasBus_ = true;
    std::vector<std::string> mirrored_;
    std::set<pid_t> suspended_;
};

}
