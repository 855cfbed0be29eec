#include "Measure/WindowFigures.hpp"

#include "VirtualDesktop/Processes/ProcessFigures.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Report.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace vireline::desktop {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int bandDepth = 3;
constexpr int motionEvents = 5000;
constexpr int summons = 20;

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

class WindowDesktop {
public:
    /// The first display has no dock; the pointer and the summoned window move to the second.
    explicit WindowDesktop(const std::string& preferences)
        : desktop_(Programs{TESTED_PROGRAM, TEST_APP, FILE_MANAGER},
                   {.monitors = {{"main", {0, 0, 1920, 1080}}, {"side", {1920, 0, 1920, 1080}}}}) {
        desktop_.home().install(app_);
        desktop_.home().pin(std::vector{app_});
        desktop_.home().writePreferences(R"({"onboardingCompleted": true, )" + preferences + "}");
        desktop_.runVireline();
        if (!eventually([&] { return desktop_.docks().shown().size() == 1; }) ||
            !comesToRest(desktop_.vireline().pid(), std::chrono::seconds{1}))
            throw std::runtime_error{"the dock does not come up"};
    }

    /// Times from sending a motion event until the server reports that the pointer is where it may
    /// rest: with the guard and a move into a band, at the band's top. The guard's cost is the
    /// difference to a run without it. The dock is elsewhere.
    std::vector<double> timesOfMoves(bool isAimedAtBand) {
        const PixelRect side = desktop_.monitor("side").frame;
        const auto pointer = desktop_.pointer();
        std::vector<double> times;
        for (int i = 0; i < motionEvents; ++i) {
            const int x = side.x + 10 + i % 400;
            pointer.moveTo({x, side.y + 200});
            // By then the previous move has been handled.
            std::this_thread::sleep_for(std::chrono::microseconds{500});
            const PixelPoint to{x, isAimedAtBand ? side.bottom() - 1 : side.y + 300};
            const PixelPoint rest{x,
                                  isAimedAtBand && isGuarded_ ? side.bottom() - bandDepth : to.y};
            const auto start = Clock::now();
            pointer.moveTo(to);
            times.push_back(timeUntil(start, [&] { return pointer.position() == rest; }));
        }
        return times;
    }

    /// The program's own processor time per motion event, averaged, because the kernel's accounting
    /// is much coarser than a single event.
    double processorTimePerMove() {
        const PixelRect side = desktop_.monitor("side").frame;
        const pid_t pid = desktop_.vireline().pid();
        const auto before = processorTime(pid);
        for (int i = 0; i < motionEvents; ++i) {
            desktop_.pointer().moveTo({side.x + 10 + i % 400, side.y + 200});
            std::this_thread::sleep_for(std::chrono::microseconds{500});
        }
        return (processorTime(pid) - before).count() / motionEvents;
    }

    void setGuarded() { isGuarded_ = true; }

    /// Times from the click on a tile until the window is centred on the display.
    std::vector<double> timesOfSummons() {
        desktop_.launch(app_, {"--at", "200,200"});
        if (!eventually([&] { return desktop_.isActive(app_); }) ||
            !comesToRest(desktop_.vireline().pid(), std::chrono::seconds{1}))
            throw std::runtime_error{"the app does not come up"};
        // The program brings back a window that moves away on its own within its first ten seconds.
        std::this_thread::sleep_for(std::chrono::seconds{11});
        const xcb_window_t window = desktop_.windowsOf(app_).front();
        const PixelRect home = desktop_.client().frame(window).value_or(PixelRect{});
        PanelPlanner::Request request;
        request.counts.pinned = 1;
        const PixelPoint tile =
            DockLayout{desktop_.planned(request).front(), {1, 0, 2}, request.maxIconSize}.icon(0);
        std::vector<double> times;
        for (int i = 0; i < summons; ++i) {
            desktop_.pointer().moveTo(tile);
            // Longer than a double click, and than the time for which the window is held in place.
            std::this_thread::sleep_for(std::chrono::milliseconds{1500});
            if (desktop_.client().frame(window) != home)
                throw std::runtime_error{"the window does not stay where it was"};
            const auto start = Clock::now();
            desktop_.pointer().press(Pointer::Button::primary);
            desktop_.pointer().release(Pointer::Button::primary);
            times.push_back(timeUntil(start, [&] { return isInMiddle(window); }));
            sendBack(window, home);
        }
        return times;
    }

private:
    [[nodiscard]] PixelRect outerFrame(xcb_window_t window) const {
        auto frame = desktop_.client().frame(window).value_or(PixelRect{});
        const auto sides = desktop_.client().items(window, "_NET_FRAME_EXTENTS");
        if (sides.size() < 4)
            return frame;
        const auto side = [&](std::size_t index) { return static_cast<int>(sides[index]); };
        return {frame.x - side(0), frame.y - side(2), frame.width + side(0) + side(1),
                frame.height + side(2) + side(3)};
    }

    [[nodiscard]] bool isInMiddle(xcb_window_t window) const {
        const PixelRect outer = outerFrame(window);
        const PixelRect side = desktop_.monitor("side").frame;
        return std::abs(2 * outer.x + outer.width - 2 * side.x - side.width) <= 1 &&
               std::abs(2 * outer.y + outer.height - 2 * side.y - side.height) <= 1;
    }

    void sendBack(xcb_window_t window, const PixelRect& home) const {
        // As a pager would: only the position of the client area.
        constexpr std::uint32_t place = XCB_GRAVITY_STATIC | 1U << 8U | 1U << 9U | 2U << 12U;
        // For a second after a request the program leaves the window alone.
        std::this_thread::sleep_for(std::chrono::milliseconds{1200});
        desktop_.client().sendToRoot(
            window, "_NET_MOVERESIZE_WINDOW",
            {place, static_cast<std::uint32_t>(home.x), static_cast<std::uint32_t>(home.y), 0, 0});
        if (!eventually([&] { return desktop_.client().frame(window) == home; }))
            throw std::runtime_error{"the window does not go back"};
    }

    App app_{"org.example.App", "App", distinctColour(0), {}, {}};
    VirtualDesktop desktop_;
    bool isGuarded_ = false;
};

void measureGuard() {
    WindowDesktop off{R"("anchorAppleDock": false)"};
    const double free = median(off.timesOfMoves(false));
    const double intoBandUnguarded = median(off.timesOfMoves(true));
    const double ownOff = off.processorTimePerMove();
    WindowDesktop on{R"("anchorAppleDock": true)"};
    on.setGuarded();
    const double guarded = median(on.timesOfMoves(false));
    const double intoBand = median(on.timesOfMoves(true));
    const double ownOn = on.processorTimePerMove();
    constexpr double perMillisecond = 1000;
    report("guard, added to a move outside the bands, median", (guarded - free) * perMillisecond,
           "us", "<= 200");
    report("guard, added to a move into a band, median",
           (intoBand - intoBandUnguarded) * perMillisecond, "us", "<= 200");
    report("the whole move into a band without the guard, median",
           intoBandUnguarded * perMillisecond, "us", "");
    report("guard, processor time added per move, mean", (ownOn - ownOff) * perMillisecond, "us",
           "");
}

void measureSummon() {
    WindowDesktop desktop{R"("summonOnClick": true)"};
    auto times = desktop.timesOfSummons();
    report("summon, click to the window in its place, median", median(times), "ms", "<= 100");
    report("summon, worst of 20", *std::ranges::max_element(times), "ms", "");
}

}

void measureWindows() {
    measureGuard();
    measureSummon();
}

}
