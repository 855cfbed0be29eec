#include "Measure/SettingsFigures.hpp"

#include "Foundation/NonCopyable.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Report.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace vireline::desktop {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// Twenty tiles including Downloads and Trash.
constexpr int pinnedApps = 18;
constexpr double smallestSize = 32;

void reportAll(const std::string& what, std::vector<double> times, const std::string& promise) {
    std::ranges::sort(times);
    report(what + ", median", times[times.size() / 2], "ms", promise);
    report(what + ", worst", times.back(), "ms", "");
}

/// A folder in memory, where writing takes no time.
class MemoryFolder : private NonCopyable {
public:
    MemoryFolder() { fs::create_directory(path_); }
    ~MemoryFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }

    [[nodiscard]] const fs::path& path() const noexcept { return path_; }

private:
    fs::path path_{"/dev/shm/vireline-measure-" + std::to_string(::getpid())};
};

class SettingsDesktop {
public:
    SettingsDesktop()
        : desktop_(Programs{TESTED_PROGRAM, TEST_APP, FILE_MANAGER},
                   {.monitors = {{"main", {0, 0, 1920, 1080}},
                                 {"first", {1920, 0, 1920, 1080}},
                                 {"second", {0, 1080, 1920, 1080}},
                                 {"third", {1920, 1080, 1920, 1080}}}}) {
        for (int i = 0; i < pinnedApps; ++i) {
            const auto name = "App" + std::to_string(i);
            apps_.push_back({"org.example." + name, name, distinctColour(i), {}, {}});
            desktop_.home().install(apps_.back());
        }
        desktop_.home().pin(apps_);
    }

    [[nodiscard]] VirtualDesktop& desktop() noexcept { return desktop_; }

    /// Time from requesting the settings to their first frame, in a newly started program.
    double timeOfFirstOpening() {
        desktop_.stopVireline();
        startAndSettle();
        const auto& client = desktop_.client();
        const auto start = Clock::now();
        askForSettings();
        const double time = timeUntil(start, [&] { return showsCards(settings()); });
        // Checked last, because the queries slow the server down.
        if (client.text(settings(), "_NET_WM_NAME") != "Vireline Settings")
            throw std::runtime_error{"another window came"};
        return time;
    }

    /// Times from a key that moves the slider by a step until all docks show their tiles at the new
    /// positions.
    std::vector<double> timesOfSteps() {
        desktop_.stopVireline();
        startAndSettle();
        askForSettings();
        const auto& client = desktop_.client();
        if (!eventually([&] {
                return client.text(client.focusedWindow(), "_NET_WM_NAME") == "Vireline Settings";
            }))
            throw std::runtime_error{"the settings do not open"};
        const auto keyboard = desktop_.keyboard();
        for (const auto key : {Keyboard::tab, Keyboard::tab, Keyboard::home})
            keyboard.type(key);
        timeUntil(Clock::now(), [&] { return allDocksShow(smallestSize); });
        std::vector<double> times;
        constexpr int steps = 30;
        for (int step = 1; step <= steps; ++step) {
            // A user pauses between two steps.
            std::this_thread::sleep_for(std::chrono::milliseconds{30});
            const auto places = firstIcons(smallestSize + step);
            const auto start = Clock::now();
            keyboard.type(Keyboard::right);
            times.push_back(timeUntil(start, [&] { return allShowFirstIcon(places); }));
        }
        return times;
    }

private:
    void startAndSettle() {
        desktop_.home().writePreferences(R"({"onboardingCompleted": true})");
        if (!eventually([&] { return desktop_.docks().shown().empty(); }))
            throw std::runtime_error{"the docks stay after the program's end"};
        desktop_.runVireline();
        constexpr double usualSize = 44;
        if (!eventually([&] { return allDocksShow(usualSize); }))
            throw std::runtime_error{"the docks do not come up"};
        // By then the work deferred at start-up is done.
        std::this_thread::sleep_for(std::chrono::milliseconds{800});
    }

    /// As a second start of the program does.
    void askForSettings() {
        const auto& client = desktop_.client();
        const xcb_window_t owner = client.selectionOwner("_VIRELINE_S0");
        if (owner == XCB_NONE)
            throw std::runtime_error{"no running program owns the selection"};
        client.send(owner, "_VIRELINE_SHOW_SETTINGS", {1});
        client.sync();
    }

    [[nodiscard]] xcb_window_t settings() const {
        const auto windows = desktop_.client().managedWindows();
        return windows.empty() ? XCB_NONE : windows.back();
    }

    /// The window is painted in one go, so if the cards are visible, everything is.
    [[nodiscard]] bool showsCards(xcb_window_t window) const {
        const auto frame = desktop_.client().frame(window);
        if (window == XCB_NONE || !frame || !desktop_.client().isViewable(window))
            return false;
        constexpr Colour card{255, 255, 255};
        constexpr int inset = 30;
        const auto column = desktop_.picture({frame->x + inset, frame->y, 1, frame->height});
        return column.count(card) > frame->height / 2;
    }

    /// A point just inside the first icon's edge in each dock, at this icon size.
    [[nodiscard]] std::vector<PixelPoint> firstIcons(double size) const {
        PanelPlanner::Request request;
        request.counts.pinned = pinnedApps;
        request.maxIconSize = size;
        std::vector<PixelPoint> places;
        for (const auto& dock : desktop_.planned(request)) {
            const auto centre = DockLayout{dock, {pinnedApps, 0, 2}, size}.icon(0);
            places.push_back({centre.x - static_cast<int>(size / 2) + 2, centre.y});
        }
        return places;
    }

    [[nodiscard]] bool allShowFirstIcon(const std::vector<PixelPoint>& places) const {
        return std::ranges::all_of(places, [&](PixelPoint place) {
            return isSame(desktop_.pixel(place), apps_.front().colour);
        });
    }

    [[nodiscard]] bool allDocksShow(double size) const {
        constexpr std::size_t docks = 3;
        const auto places = firstIcons(size);
        return places.size() == docks && allShowFirstIcon(places);
    }

    VirtualDesktop desktop_;
    std::vector<App> apps_;
};

}

void measureSettings() {
    std::vector<double> openings;
    std::vector<double> stepsOnDisk;
    {
        SettingsDesktop onDisk;
        constexpr int rounds = 9;
        for (int i = 0; i < rounds; ++i)
            openings.push_back(onDisk.timeOfFirstOpening());
        stepsOnDisk = onDisk.timesOfSteps();
    }
    reportAll("settings, first opening to first frame", openings, "<= 150");

    const MemoryFolder memory;
    SettingsDesktop inMemory;
    fs::remove_all(inMemory.desktop().home().dataFolder());
    fs::create_directory_symlink(memory.path(), inMemory.desktop().home().dataFolder());
    reportAll("slider step on three docks of 20 tiles", inMemory.timesOfSteps(), "<= 16");
    reportAll("the same with the file flushed to disk", stepsOnDisk, "");
}

}
