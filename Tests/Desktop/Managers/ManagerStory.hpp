/// Shared by the scenarios that are run under every window manager: three real outputs, a panel on
/// the primary one, two pinned apps, and positions as literal numbers rather than from the
/// program's own rules.
#pragma once

#include "DesktopTest.hpp"

#include <optional>
#include <source_location>
#include <string>
#include <vector>

namespace vireline::desktop {

/// A dock with two pinned apps, Downloads and Trash: with four icons of 44 pixels and a separator
/// it is 215 long. Its window is 84 high, of which the strip takes 58, and ends 4 above the
/// monitor's bottom edge.
struct DockPlace {
    std::string output;
    PixelRect monitor;
    PixelRect frame;
    PixelPoint alpha;
    PixelPoint beta;
};

class ManagerStory : public DesktopTest {
protected:
    /// Starts everything, and waits until both docks are in place for good.
    void run(const std::string& preferences = {});
    /// As above, without waiting.
    void start(const std::string& preferences = {});

    [[nodiscard]] static bool hasManager() { return testedManager().has_value(); }
    [[nodiscard]] static bool isManager(WindowManager manager) {
        return testedManager() == manager;
    }
    /// Whether the window manager announces support for this.
    [[nodiscard]] bool supports(std::string_view atom);

    /// Records a failure with a text that appears in the table.
    static void check(bool holds, const std::string& otherwise,
                      std::source_location where = std::source_location::current());
    /// As above, and aborts the scenario.
    static void demand(bool holds, const std::string& otherwise);

    /// Whether the condition becomes true within the time that a user would wait.
    template <class Condition>
    [[nodiscard]] static bool comes(const Condition& condition) {
        return eventually(condition, std::chrono::seconds{8});
    }
    /// Whether the condition stays true for long enough to be certain.
    template <class Condition>
    [[nodiscard]] static bool stays(const Condition& condition) {
        return !eventually([&] { return !condition(); }, std::chrono::milliseconds{700});
    }

    [[nodiscard]] DockWindow dock(const DockPlace& place);
    [[nodiscard]] bool isInPlace(const DockPlace& place, const PixelRect& frame);
    [[nodiscard]] bool isInPlace(const DockPlace& place) { return isInPlace(place, place.frame); }
    /// Waits until the docks are left to the window manager if it is one that keeps them, and are
    /// out of its hands otherwise. In between, their windows are replaced. `former` are the docks
    /// under the manager's predecessor; new managers get docks back even if the former did not keep
    /// them.
    void waitForKeeper(std::optional<WindowManager> manager = testedManager(),
                       const std::vector<DockWindow>& former = {});
    /// Checks that both docks reach their places and that there are no other docks.
    void checkDocks();
    [[nodiscard]] std::string docksShown();
    /// Whether the dock receives the pointer at this position and shows its own colours there.
    [[nodiscard]] bool isOnTop(const DockPlace& place, PixelPoint tile, Colour colour);
    [[nodiscard]] bool takesPointer(const DockPlace& place, PixelPoint point);

    /// Waits until the dock shows that a tile's app is running.
    void waitForDot(const DockPlace& place, PixelPoint tile);

    /// Starts an app as from a terminal and returns its window, which is active and on that
    /// monitor.
    xcb_window_t open(const App& app, const PixelRect& monitor,
                      std::vector<std::string> arguments = {});
    /// Opens a window that covers as much of the monitor as the window manager allows. Without one,
    /// it leaves out a stripe at the top, since a window that covers all of the monitor is a
    /// full-screen one.
    xcb_window_t openLarge(const App& app, const PixelRect& monitor,
                           std::vector<std::string> arguments = {});
    /// The app's visible windows, found by title, because without a window manager there is no
    /// client list.
    [[nodiscard]] std::vector<xcb_window_t> shownWindows(const App& app);
    [[nodiscard]] bool isShown(const App& app) { return !shownWindows(app).empty(); }
    void ask(xcb_window_t window, const std::string& state, bool on);
    [[nodiscard]] bool has(xcb_window_t window, const std::string& state);
    /// The window's frame including its decoration.
    [[nodiscard]] PixelRect outer(xcb_window_t window);
    /// Switches the monitor with the window to another desktop; returns false if there is none.
    [[nodiscard]] bool leaveDesktopOf(const App& app);

    /// Clicks and waits until the program logs this message.
    void clickTile(PixelPoint tile, const std::string& message);

    const PixelRect primary{0, 0, 1280, 800};
    const DockPlace middle{
        outputName(1), {1280, 0, 1600, 900}, {1973, 812, 215, 84}, {2002, 867}, {2052, 867}};
    const DockPlace side{
        outputName(2), {2880, 0, 1024, 768}, {3285, 680, 215, 84}, {3314, 735}, {3364, 735}};
    const std::vector<Monitor> monitors{
        {outputName(0), primary}, {middle.output, middle.monitor}, {side.output, side.monitor}};
    const App alpha = someApps(2)[0];
    const App beta = someApps(2)[1];
};

}
