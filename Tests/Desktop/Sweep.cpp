/// Sweeps the pointer over the program's dock and over Plank's on the same desktop, and measures
/// the processor time that each takes for it, and whether it sleeps again afterwards.
#include "VirtualDesktop/ProcessFigures.hpp"
#include "VirtualDesktop/Report.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"
#include "VirtualDesktop/Waiting.hpp"
#include "VirtualDesktop/Wallpaper.hpp"

#include <fstream>
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace vireline::desktop {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int tileCount = 12;
/// Downloads and Trash are tiles too.
constexpr int pinnedCount = tileCount - 3;
//ROUNDS
constexpr int iconSize = 44;
constexpr double magnification = 1.5;

/// How far a sweep goes, and how fast.
constexpr int steps = 1000;
const int passes = getenv("PASSES") ? atoi(getenv("PASSES")) : 4;
constexpr Clock::duration pace = 4ms;

/// A dock that is measured: its process and the line that the pointer follows.
struct Subject {
    std::string name;
    pid_t pid = 0;
    PixelPoint from;
    PixelPoint to;
};

struct Figures {
    double milliseconds = 0;
    long wakeUps = 0;
};

std::vector<App> apps() {
    std::vector<App> all;
    for (int i = 0; i < tileCount; ++i) {
        const auto name = "App" + std::to_string(i);
        all.push_back({"org.example." + name, name, distinctColour(i), {}, {}});
    }
    return all;
}

std::unique_ptr<VirtualDesktop> makeDesktop() {
    VirtualDesktop::Options options;
    options.monitors = {{"main", {0, 0, 1920, 1080}}, {"side", {1920, 0, 1920, 1080}}};
    options.compositor = true;
    options.sessionBus = true;
    options.installedApps = true;
    auto desktop =
        std::make_unique<VirtualDesktop>(Programs{TESTED_PROGRAM, TEST_APP, FILE_MANAGER}, options);
    paintWallpaper(desktop->client(), desktop->displays().monitors);
    return desktop;
}

PanelPlanner::Request request() {
    PanelPlanner::Request request;
    request.pinnedCount = pinnedCount;
    request.unpinnedRunningCount = 0;
    request.maxIconSize = iconSize;
    request.magnification = magnification;
    return request;
}

Subject startVireline(VirtualDesktop& desktop, const std::vector<App>& apps) {
    desktop.home().pin(std::span{apps}.first(pinnedCount));
    desktop.home().writePreferences(
        R"({"onboardingCompleted": true, "iconSize": 44, "magnificationEnabled": true,
            "magnification": 1.5})");
    desktop.runVireline();
    if (!eventually([&] { return desktop.docks().shown().size() == 1; }))
        throw std::runtime_error{"the dock does not come up"};
    const auto planned = desktop.planned(request());
    const DockLayout layout{planned.front(), {pinnedCount, 0, 2}, iconSize};
    const PixelRect strip = layout.strip();
    const int y = strip.center().y;
    return {"Vireline", desktop.vireline().pid(), {strip.x, y}, {strip.right() - 1, y}};
}

/// The same number of tiles, of the same size and growth.
void configurePlank(VirtualDesktop& desktop, const std::vector<App>& apps) {
    const auto configuration = desktop.home().folder() / ".config";
    std::string items;
    for (const App& app : apps) {
        const auto item = app.name + ".dockitem";
        writeFile(configuration / "plank/dock1/launchers" / item,
                  "[PlankDockItemPreferences]\nLauncher=file://" +
                      desktop.home().entry(app.id).string() + "\n");
        items += (items.empty() ? "'" : ", '") + item + "'";
    }
    writeFile(configuration / "glib-2.0/settings/keyfile",
              "[net/launchpad/plank/docks/dock1]\ndock-items=[" + items +
                  "]\nicon-size=" + std::to_string(iconSize) +
                  "\nzoom-enabled=true\nzoom-percent=150\nhide-mode='" + std::string(getenv("HIDE") ? getenv("HIDE") : "none") + "'\n"
                  "show-dock-item=false\nlock-items=true\n");
    desktop.environment()["GSETTINGS_BACKEND"] = "keyfile";
}

Subject startPlank(VirtualDesktop& desktop, const std::vector<App>& apps) {
    configurePlank(desktop, apps);
    const pid_t pid = desktop.run("plank", {"-n", "dock1"}).pid();
    PixelRect frame;
    const auto isShown = [&] {
        for (const xcb_window_t window : desktop.client().managedWindows()) {
            if (desktop.client().text(window, "WM_CLASS").starts_with("plank") &&
                desktop.client().hasProperty(window, "_NET_WM_STRUT_PARTIAL")) {
                frame = desktop.client().frame(window).value_or(PixelRect{});
                return true;
            }
        }
        return false;
    };
    if (!eventually(isShown))
        throw std::runtime_error{"Plank does not come up"};
    // Its window is as long as the display; the tiles are in the middle of it.
    constexpr int tile = 48;
    const int half = tileCount * tile / 2;
    const int middle = frame.center().x;
    const int y = frame.bottom() - iconSize / 2;
    return {"Plank", pid, {middle - half, y}, {middle + half, y}};
}

/// There and back, in equal steps.
PixelPoint place(const Subject& subject, int step) {
    const int perPass = steps / passes;
    const int inPass = step % perPass;
    const int along = (step / perPass) % 2 == 0 ? inPass : perPass - 1 - inPass;
    return {subject.from.x + (subject.to.x - subject.from.x) * along / (perPass - 1),
            subject.from.y};
}

double schedMs(pid_t pid) {
    double total = 0;
    for (auto& t : std::filesystem::directory_iterator{"/proc/" + std::to_string(pid) + "/task"}) {
        std::ifstream f{t.path() / "schedstat"};
        double ns = 0;
        f >> ns;
        total += ns / 1e6;
    }
    return total;
}

Figures sweep(VirtualDesktop& desktop, const Subject& subject) {
    const PixelPoint away{subject.from.x, subject.from.y - 500};
    const auto pointer = desktop.pointer();
    pointer.moveTo(away);
    if (!comesToRest(subject.pid, 1s))
        std::cout << subject.name << " does not come to rest\n";

    const auto before = processorTime(subject.pid); const double sched = schedMs(subject.pid); const long sw = contextSwitches(subject.pid);
    auto next = Clock::now();
    for (int step = 0; step < steps; ++step) {
        std::this_thread::sleep_until(next += pace);
        pointer.moveTo(place(subject, step));
    }
    Figures figures;
    figures.milliseconds = (processorTime(subject.pid) - before).count();

    std::cout << "ms " << (processorTime(subject.pid) - before).count() << " sched " << schedMs(subject.pid) - sched << std::endl;
    std::cout << "switches " << contextSwitches(subject.pid) - sw << std::endl;
    pointer.moveTo(away);
    // Longer than any animation takes that the pointer leaves behind.
    std::this_thread::sleep_for(500ms);
    const long switches = contextSwitches(subject.pid);
    std::this_thread::sleep_for(1s);
    figures.wakeUps = contextSwitches(subject.pid) - switches;
    return figures;
}

void compare() {
    const auto desktop = makeDesktop();
    const auto installed = apps();
    for (const App& app : installed)
        desktop->home().install(app);
    std::vector<Subject> subjects; if (!getenv("NOPLANK")) subjects.push_back(startPlank(*desktop, installed));
    subjects.push_back(startVireline(*desktop, installed));
    std::vector<double> times;
    for (const Subject& subject : subjects) {
        const int rounds = getenv("ROUNDS") ? atoi(getenv("ROUNDS")) : 1;
        std::cout << "PID " << subject.name << ' ' << subject.pid << std::endl;
        for (int i = 0; i < rounds; ++i) sweep(*desktop, subject);
        const Figures figures = sweep(*desktop, subject);
        times.push_back(figures.milliseconds);
        report(subject.name + ": processor time of 4 s of movement", figures.milliseconds, "ms");
        report(subject.name + ": wake-ups in 1 s at rest afterwards",
               static_cast<double>(figures.wakeUps), "", "0");
    }
    if (times.size() > 1) report("Vireline's share of Plank's time", 100 * times[1] / times[0], "%", "<= 25");
    desktop->pointer().moveTo(place(subjects[0], 90));
    std::this_thread::sleep_for(1s);
    Picture::ofScreen(desktop->client()).writePNG("/tmp/surface-plank.png");
    desktop->pointer().moveTo(place(subjects.back(), 90));
    std::this_thread::sleep_for(1s);
    Picture::ofScreen(desktop->client()).writePNG("/tmp/surface-vireline.png");
}

}
}

int main() {
    try {
        vireline::desktop::compare();
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "sweep: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
