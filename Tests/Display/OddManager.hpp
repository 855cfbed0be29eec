/// A window manager for tests, with one quirk found in real ones. Runs on its own thread until
/// destroyed.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <atomic>
#include <cstdint>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace vireline::test {

class OddManager : private NonCopyable {
public:
    enum class Habit : std::uint8_t {
        none,
        /// Makes each dock as wide as the screen.
        docksDocks,
        /// Shows docks without managing them, and stacks other windows above them.
        ignoresDocks,
        /// Manages a dock, but never moves it or reports its position.
        stranded,
        /// Like `ignoresDocks`, and raises its windows whenever a dock is raised above one.
        fightsDocks,
        /// Like `ignoresDocks`, with other windows in frames that are override-redirect.
        framesWindows,
        /// Manages docks, but stacks every new window above them.
        coversDocks,
        /// Manages docks, but announces a border around them.
        bordersDocks,
        /// Carries out the first request about a dock only after two seconds.
        answersLate,
        /// Focuses every window that it shows, unless the window refuses the focus.
        focusesWindows,
    };

    OddManager(const std::string& display, Habit habit);
    ~OddManager();

    /// How often it has raised a window above a dock again.
    [[nodiscard]] int raises() const noexcept { return raises_; }

private:
    void run();
    void handle(const xcb_generic_event_t& event);
    void show(xcb_window_t window);
    void configure(const xcb_configure_request_event_t& request);
    void stack(xcb_window_t window);
    [[nodiscard]] xcb_window_t putInFrame(xcb_window_t window);
    void stacked(const xcb_configure_notify_event_t& change);
    [[nodiscard]] bool refusesFocus(xcb_window_t window) const;
    [[nodiscard]] bool isDock(xcb_window_t window);

    desktop::XClient client_;
    Habit habit_;
    xcb_window_t mark_;
    /// The topmost window that is not a dock.
    xcb_window_t top_ = XCB_NONE;
    std::map<xcb_window_t, bool> docks_;
    std::vector<std::uint32_t> listed_;
    /// The same windows, bottom first.
    std::vector<std::uint32_t> stacking_;
    bool hasAnswered_ = false;
    std::atomic<int> raises_{0};
    std::atomic<bool> isEnding_{false};
    std::thread thread_;
};

}
