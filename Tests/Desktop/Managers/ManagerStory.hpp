/// What the stories share that are told under every window manager: three real outputs, a panel on
/// the primary one, two pinned apps, and places written down rather than taken from the program's
/// rules.
#pragma once

#include "DesktopTest.hpp"

#include <source_location>
#include <string>
#include <vector>

namespace vireline::desktop {

/// Where a dock of two pinned apps, Downloads and Trash is: four icons of 44 pixels and a separator
/// make it 215 long. Its window is 84 high, 58 of them the strip, and ends 4 above the monitor's
/// end.
struct DockPlace {
    std::string output;
    PixelRect monitor;
    PixelRect frame;
    PixelPoint alpha;
    PixelPoint beta;
};

class ManagerStory : public DesktopTest {
protected:
    /// Starts everything, and waits until both docks are in their places.
    void run(const std::string& preferences = {});
    /// The same without waiting.
    void start(const std::string& preferences = {});

    [[nodiscard]] static bool hasManager() { return testedManager().has_value(); }
    [[nodiscard]] static bool isManager(WindowManager manager) {
        return testedManager() == manager;
    }
    /// Whether the window manager says that it knows this.
    [[nodiscard]] bool supports(std::string_view atom);

    /// A failure whose text stands in the table.
    static void check(bool holds, const std::string& otherwise,
                      std::source_location where = std::source_location::current());
    /// The same, and the story ends there.
    static void demand(bool holds, const std::string& otherwise);

    /// Whether it comes true in the time that a person would wait.
    template <class Condition>
    [[nodiscard]] static bool comes(const Condition& condition) {
        return eventually(condition, std::chrono::seconds{8});
    }
    /// Whether it is true for as long as it takes to be sure.
    template <class Condition>
    [[nodiscard]] static bool stays(const Condition& condition) {
        return !eventually([&] { return !condition(); }, std::chrono::milliseconds{700});
    }

    [[nodiscard]] DockWindow dock(const DockPlace& place);
    [[nodiscard]] bool isInPlace(const DockPlace& place, const PixelRect& frame);
    [[nodiscard]] bool isInPlace(const DockPlace& place) { return isInPlace(place, place.frame); }
    /// Both docks come to their places, and no other dock is there.
    void checkDocks();
    [[nodiscard]] std::string docksShown();
    /// The dock takes the pointer at this place, and its own colours are seen there.
    [[nodiscard]] bool isOnTop(const DockPlace& place, PixelPoint tile, Colour colour);
    [[nodiscard]] bool takesPointer(const DockPlace& place, PixelPoint point);

    /// Returns once the dock shows that the app behind a tile runs.
    void waitForDot(const DockPlace& place, PixelPoint tile);

    /// Starts an app as from a terminal and returns its window, which is on that monitor and
    /// active.
    xcb_window_t open(const App& app, const PixelRect& monitor,
                      std::vector<std::string> arguments = {});
    /// One that covers all of the monitor that the window manager lets it.
    xcb_window_t openLarge(const App& app, const PixelRect& monitor,
                           std::vector<std::string> arguments = {});
    /// Windows of the app that are on the screen, by their titles: without a window manager there
    /// is no list of windows.
    [[nodiscard]] std::vector<xcb_window_t> shownWindows(const App& app);
    [[nodiscard]] bool isShown(const App& app) { return !shownWindows(app).empty(); }
    void ask(xcb_window_t window, const std::string& state, bool on);
    [[nodiscard]] bool has(xcb_window_t window, const std::string& state);
    /// The window with its decoration.
    [[nodiscard]] PixelRect outer(xcb_window_t window);
    /// Goes to another desktop than the window's on the monitor where it is; false if there is
    /// none.
    [[nodiscard]] bool leaveDesktopOf(const App& app);

    /// Clicks and waits until the program says in its log what it did.
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
