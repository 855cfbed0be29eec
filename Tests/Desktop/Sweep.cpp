/// Sweeps the pointer over the program's dock and over Plank's on the same desktop, and measures
/// the processor time that each takes for it, and whether it sleeps again afterwards.
#include "VirtualDesktop/ProcessFigures.hpp"
#include "VirtualDesktop/Report.hpp"
#include "VirtualDesktop/VirtualDesktop.hpp"
#include "VirtualDesktop/Waiting.hpp"
#include "VirtualDesktop/Wallpaper.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace vireline::desktop {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr int tileCount = 12;
/// The file manager leads the program's list; Downloads and Trash end it.
constexpr int pinnedApps = tileCount - 3;
constexpr int iconSize = 44;
constexpr double magnification = 1.5;

/// A sweep goes there and back twice, and takes four seconds.
constexpr int steps = 1000;
constexpr int passes = 4;
constexpr Clock::duration pace = 4ms;
/// In the first one, icons are drawn at sizes that they never had before.
constexpr int laterSweeps = 5;

/// A dock that is measured: its process and the line that the pointer follows.
struct Subject {
    std::string name;
    pid_t pid = 0;
    PixelPoint from;
    PixelPoint to;
};

/// What sweeps took, in milliseconds, of the program itself and of the X server.
struct Times {
    double own = 0;
    double server = 0;
};

struct Figures {
    Times first;
    Times later;
    long wakeUps = 0;
};

std::vector<App> apps() {
    constexpr std::array<const char*, tileCount> icons{"web-browser",
                                                       "internet-mail",
                                                       "office-calendar",
                                                       "multimedia-audio-player",
                                                       "multimedia-photo-viewer",
                                                       "system-software-install",
                                                       "utilities-terminal",
                                                       "accessories-text-editor",
                                                       "accessories-calculator",
                                                       "preferences-system",
                                                       "system-file-manager",
                                                       "libreoffice-writer"};
    std::vector<App> all;
    for (const char* const icon : icons) {
        const auto name = "App" + std::to_string(all.size());
        all.push_back({"org.example." + name, name, {}, {}, {}, icon});
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
    writeFile(desktop->home().folder() / ".config/gtk-3.0/settings.ini",
              "[Settings]\ngtk-icon-theme-name=Papirus\n");
    return desktop;
}

Subject startVireline(VirtualDesktop& desktop, const std::vector<App>& apps) {
    desktop.home().pin(std::span{apps}.first(pinnedApps));
    desktop.home().writePreferences(
        R"({"onboardingCompleted": true, "iconSize": 44, "magnificationEnabled": true,
            "magnification": 1.5})");
    desktop.runVireline();
    if (!eventually([&] { return desktop.docks().shown().size() == 1; }))
        throw std::runtime_error{"the dock does not come up"};
    PanelPlanner::Request request;
    request.pinnedCount = pinnedApps + 1;
    request.maxIconSize = iconSize;
    request.magnification = magnification;
    const DockLayout layout{
        desktop.planned(request).front(), {request.pinnedCount, 0, 2}, iconSize};
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
                  "\nzoom-enabled=true\nzoom-percent=150\nhide-mode='none'\n"
                  "show-dock-item=false\nlock-items=true\n");
    desktop.environment()["GSETTINGS_BACKEND"] = "keyfile";
}

/// The window of Plank's dock; nothing before it is shown.
std::optional<PixelRect> plankFrame(const XClient& client) {
    for (const xcb_window_t window : client.managedWindows()) {
        if (client.text(window, "WM_CLASS").starts_with("plank") &&
            client.hasProperty(window, "_NET_WM_STRUT_PARTIAL"))
            return client.frame(window);
    }
    return std::nullopt;
}

Subject startPlank(VirtualDesktop& desktop, const std::vector<App>& apps) {
    configurePlank(desktop, apps);
    const pid_t pid = desktop.run("plank", {"-n", "dock1"}).pid();
    std::optional<PixelRect> frame;
    if (!eventually([&] { return (frame = plankFrame(desktop.client())).has_value(); }))
        throw std::runtime_error{"Plank does not come up"};
    // Its window is as long as the display; the tiles are in the middle of it.
    constexpr int tile = 54;
    const int half = tileCount * tile / 2;
    const int middle = frame->center().x;
    const int y = frame->bottom() - iconSize / 2;
    return {"Plank", pid, {middle - half, y}, {middle + half, y}};
}

PixelPoint place(const Subject& subject, int step) {
    constexpr int perPass = steps / passes;
    const int inPass = step % perPass;
    const int along = (step / perPass) % 2 == 0 ? inPass : perPass - 1 - inPass;
    return {subject.from.x + (subject.to.x - subject.from.x) * along / (perPass - 1),
            subject.from.y};
}

void leave(const VirtualDesktop& desktop, const Subject& subject) {
    constexpr int farEnough = 500;
    desktop.pointer().moveTo({subject.from.x, subject.from.y - farEnough});
}

Times sweep(const VirtualDesktop& desktop, const Subject& subject) {
    leave(desktop, subject);
    if (!comesToRest(subject.pid, 1s))
        std::cout << subject.name << " does not come to rest\n";
    const auto own = processorTime(subject.pid);
    const auto server = processorTime(desktop.server());
    auto next = Clock::now();
    for (int step = 0; step < steps; ++step) {
        std::this_thread::sleep_until(next += pace);
        desktop.pointer().moveTo(place(subject, step));
    }
    return {(processorTime(subject.pid) - own).count(),
            (processorTime(desktop.server()) - server).count()};
}

/// In the second that begins when all that the pointer has left behind must have come to its end.
long wakeUpsAfterwards(const VirtualDesktop& desktop, const Subject& subject) {
    constexpr auto longestAnimation = 500ms;
    leave(desktop, subject);
    std::this_thread::sleep_for(longestAnimation);
    ContextSwitches switches{subject.pid};
    std::this_thread::sleep_for(1s);
    return switches.count();
}

void tell(const Subject& subject, const Figures& figures) {
    const auto time = [&](const std::string& what, double value) {
        report(subject.name + ": " + what, value, "ms");
    };
    time("processor time of the first sweep", figures.first.own);
    time("of a later one, on average", figures.later.own);
    time("the X server's for a later one", figures.later.server);
    report(subject.name + ": wake-ups in 1 s afterwards", static_cast<double>(figures.wakeUps), "",
           "0");
}

/// By turns, as what else the computer does may change.
std::vector<Figures> measure(const VirtualDesktop& desktop, const std::vector<Subject>& subjects) {
    std::vector<Figures> figures(subjects.size());
    for (std::size_t i = 0; i < subjects.size(); ++i)
        figures[i].first = sweep(desktop, subjects[i]);
    for (int round = 0; round < laterSweeps; ++round) {
        for (std::size_t i = 0; i < subjects.size(); ++i) {
            const Times times = sweep(desktop, subjects[i]);
            figures[i].later.own += times.own / laterSweeps;
            figures[i].later.server += times.server / laterSweeps;
            figures[i].wakeUps += wakeUpsAfterwards(desktop, subjects[i]);
        }
    }
    return figures;
}

void compare() {
    const auto desktop = makeDesktop();
    const auto installed = apps();
    for (const App& app : installed)
        desktop->home().install(app);
    const std::vector<Subject> subjects{startPlank(*desktop, installed),
                                        startVireline(*desktop, installed)};
    const auto figures = measure(*desktop, subjects);
    for (std::size_t i = 0; i < subjects.size(); ++i)
        tell(subjects[i], figures[i]);
    constexpr double percent = 100;
    report("Vireline's share of Plank's time, the first sweep",
           percent * figures[1].first.own / figures[0].first.own, "%", "<= 25");
    report("Vireline's share of Plank's time, later ones",
           percent * figures[1].later.own / figures[0].later.own, "%", "<= 25");
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
