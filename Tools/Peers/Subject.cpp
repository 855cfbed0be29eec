#include "Peers/Subject.hpp"

#include "VirtualDesktop/Docks/DockWatch.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "VirtualDesktop/Screen/Wallpaper.hpp"

#include <algorithm>
#include <array>
#include <csignal>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <utility>

namespace vireline::desktop {
namespace {

using namespace std::chrono_literals;
using Clock = DockWatch::Clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// Ten for the launchers, and ten more.
std::vector<App> makeApps() {
    constexpr std::array icons{"system-file-manager",
                               "web-browser",
                               "internet-mail",
                               "office-calendar",
                               "multimedia-audio-player",
                               "utilities-terminal",
                               "accessories-text-editor",
                               "accessories-calculator",
                               "preferences-system",
                               "libreoffice-writer",
                               "multimedia-photo-viewer",
                               "system-software-install",
                               "libreoffice-calc",
                               "libreoffice-impress",
                               "utilities-system-monitor",
                               "accessories-dictionary",
                               "internet-chat",
                               "multimedia-video-player",
                               "preferences-desktop-wallpaper",
                               "help-browser"};
    static_assert(icons.size() == 2 * comparedLaunchers);
    std::vector<App> apps;
    for (const char* const icon : icons) {
        const auto name = "App" + std::to_string(apps.size());
        apps.push_back({"org.example." + name, name, {}, {}, {}, icon});
    }
    return apps;
}

const std::vector<Monitor>& twoDisplays() {
    static const std::vector<Monitor> monitors{{"main", {0, 0, 1920, 1080}},
                                               {"side", {1920, 0, 1920, 1080}}};
    return monitors;
}

std::unique_ptr<VirtualDesktop> makeDesktop(const std::vector<App>& apps, bool isOnSway) {
    VirtualDesktop::Options options;
    if (isOnSway)
        options.manager = WindowManager::sway;
    options.monitors = twoDisplays();
    // Only as large as the displays, because some of the programs know only the whole screen.
    options.width = 0;
    options.height = 0;
    options.compositor = true;
    options.sessionBus = true;
    options.installedApps = true;
    auto desktop =
        std::make_unique<VirtualDesktop>(Programs{TESTED_PROGRAM, TEST_APP, FILE_MANAGER}, options);
    // Without services that any session starts anyway, so that they are not charged to one program.
    desktop->environment()["NO_AT_BRIDGE"] = "1";
    desktop->environment()["GIO_USE_VFS"] = "local";
    if (!isOnSway)
        paintWallpaper(desktop->client(), desktop->displays().monitors);
    writeFile(desktop->home().folder() / ".config/gtk-3.0/settings.ini",
              "[Settings]\ngtk-icon-theme-name=Papirus\n");
    for (const App& app : apps)
        desktop->home().install(app);
    return desktop;
}

double inMegabytes(long kilobytes) {
    constexpr double perMegabyte = 1024;
    return static_cast<double>(kilobytes) / perMegabyte;
}

long privateKilobytes(const std::vector<pid_t>& pids) {
    return kilobytes(pids, "Private_Clean:") + kilobytes(pids, "Private_Dirty:");
}

xcb_window_t openWindow(const XClient& client, const App& app) {
    const auto window = client.createWindow({200, 200, 400, 300}, 0xf0f0e8);
    client.setText(window, "WM_CLASS", "STRING", windowClass(app) + '\0' + windowClass(app) + '\0');
    client.setText(window, "WM_NAME", "STRING", app.name);
    client.setText(window, "_NET_WM_NAME", app.name);
    client.setAtoms(window, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_NORMAL"});
    client.map(window);
    return window;
}

void require(bool came, const char* what) {
    if (!came)
        throw std::runtime_error{what};
}

}

Subject::Subject(const Peer& peer)
    : peer_(peer), apps_(makeApps()), desktop_(makeDesktop(apps_, peer.isOnSway)) {
    peer_.configure(*desktop_, std::span{apps_}.first(comparedLaunchers));
}

void Subject::startProcess() {
    process_.emplace(Command{peer_.command.front(),
                             {peer_.command.begin() + 1, peer_.command.end()},
                             desktop_->environment(),
                             desktop_->home().scratch() / "subject.out",
                             desktop_->home().scratch() / "subject.err",
                             {}});
}

double Subject::start() {
    leaveDock();
    Clock::time_point start;
    Clock::time_point shown;
    PixelRect frame{};
    if (peer_.firstPixels == PixelRect{}) {
        DockWatch watch{desktop_->display()};
        start = Clock::now();
        startProcess();
        const DockWatch::Shown dock = watch.waitForDocks(1).front();
        shown = dock.when;
        // Some move and grow until all their launchers are shown.
        std::this_thread::sleep_for(2s);
        frame = desktop_->client().frame(dock.window).value_or(PixelRect{});
    } else {
        shown = waitForFirstPixels(start);
        std::this_thread::sleep_for(2s);
        frame = frameOfDock();
    }
    dock_ = frame;
    return Milliseconds{shown - start}.count();
}

Clock::time_point Subject::waitForFirstPixels(Clock::time_point& start) {
    constexpr auto pause = 1ms;
    constexpr auto calm = 500ms;
    const auto pixels = [this] { return desktop_->picture(peer_.firstPixels); };
    // A compositor may draw its background late, and may still show what has ended.
    Picture empty = pixels();
    require(eventually([&] {
                std::this_thread::sleep_for(calm);
                const Picture before = std::exchange(empty, pixels());
                return before == empty;
            }),
            "the desktop does not come to rest");
    start = Clock::now();
    startProcess();
    const auto latest = start + conditionTimeout;
    while (pixels() == empty) {
        require(Clock::now() < latest, "the program shows nothing");
        std::this_thread::sleep_for(pause);
    }
    return Clock::now();
}

PixelRect Subject::frameOfDock() const {
    const auto docks = desktop_->docks().shown();
    const auto found = std::ranges::find_if(docks, [this](const DockWindow& dock) {
        return dock.frame.x <= peer_.firstPixels.x &&
               dock.frame.right() >= peer_.firstPixels.right();
    });
    return found == docks.end() ? twoDisplays().front().frame : found->frame;
}

/// The compositor's process ID is part of its socket's name: "sway-ipc.<user>.<process>.sock".
pid_t Subject::server() const {
    if (isOnX())
        return desktop_->server();
    const std::filesystem::path socket{desktop_->environment()["SWAYSOCK"]};
    return std::stoi(socket.stem().extension().string().substr(1));
}

void Subject::stop() {
    const pid_t leader = process_->pid();
    process_.reset();
    // Processes that it has left running.
    for (const pid_t left : sessionOf(leader))
        kill(left, SIGKILL);
    require(eventually([&] { return sessionOf(leader).empty(); }), "the program does not end");
}

std::vector<pid_t> Subject::own() const {
    auto all = sessionOf(desktop_->sessionBus());
    std::erase(all, desktop_->sessionBus());
    std::ranges::copy(sessionOf(process_->pid()), std::back_inserter(all));
    return all;
}

Subject::Memory Subject::memory() const {
    const auto pids = own();
    return {inMegabytes(kilobytes(pids, "Rss:")), inMegabytes(kilobytes(pids, "Pss:")),
            inMegabytes(privateKilobytes(pids))};
}

Subject::Cost Subject::spent() const {
    return {processorTime(own()).count(), processorTime(server()).count()};
}

Subject::Cost Subject::costSince(const Cost& before) const {
    const Cost now = spent();
    return {now.own - before.own, now.server - before.server};
}

Subject::Rest Subject::rest(std::chrono::seconds length) const {
    ContextSwitches switches{own()};
    const Cost before = spent();
    std::this_thread::sleep_for(length);
    return {costSince(before).own, static_cast<double>(switches.count())};
}

void Subject::leaveDock() const {
    desktop_->pointer().moveTo(twoDisplays().front().frame.center());
}

Picture Subject::picture() const {
    constexpr auto longestAnimation = 500ms;
    const Line line = peer_.launchers(dock_);
    desktop_->pointer().moveTo(line.to);
    desktop_->pointer().moveTo({line.from.x + (line.to.x - line.from.x) / 4, line.from.y});
    std::this_thread::sleep_for(longestAnimation);
    return desktop_->picture(
        {0, 0, twoDisplays().back().frame.right(), twoDisplays().back().frame.bottom()});
}

Subject::Cost Subject::sweep(int steps) const {
    constexpr int passes = 4;
    constexpr auto pace = 4ms;
    constexpr auto longestAnimation = 500ms;
    const Line line = peer_.launchers(dock_);
    const int perPass = steps / passes;
    const Cost before = spent();
    auto next = Clock::now();
    for (int step = 0; step < steps; ++step) {
        std::this_thread::sleep_until(next += pace);
        const int inPass = step % perPass;
        const int along = (step / perPass) % 2 == 0 ? inPass : perPass - 1 - inPass;
        desktop_->pointer().moveTo(
            {line.from.x + (line.to.x - line.from.x) * along / (perPass - 1), line.from.y});
    }
    leaveDock();
    // A slow dock is still animating after the last step.
    std::this_thread::sleep_for(longestAnimation);
    return costSince(before);
}

Subject::Cost Subject::openWindows(int count) const {
    constexpr auto longestAnimation = 500ms;
    const Cost before = spent();
    if (isOnX())
        openXWindows(count);
    else
        openWaylandWindows(count);
    std::this_thread::sleep_for(longestAnimation);
    return costSince(before);
}

void Subject::openXWindows(int count) const {
    constexpr auto between = 10ms;
    const XClient& client = desktop_->client();
    for (int i = 0; i < count; ++i) {
        const auto window =
            openWindow(client, apps_.at(static_cast<std::size_t>(i) % apps_.size()));
        require(eventually([&] { return client.hasProperty(window, "WM_STATE"); }),
                "the window does not open");
        std::this_thread::sleep_for(between);
        client.destroy(window);
        std::this_thread::sleep_for(between);
    }
}

/// Each is a program of its own, which writes to a file once it has drawn its window.
void Subject::openWaylandWindows(int count) const {
    constexpr auto between = 10ms;
    const auto drawn = desktop_->home().scratch() / "drawn";
    for (int i = 0; i < count; ++i) {
        const App& app = apps_.at(static_cast<std::size_t>(i) % apps_.size());
        std::filesystem::remove(drawn);
        ChildProcess program{
            Command{WAYLAND_TEST_APP,
                    {"--class", windowClass(app), "--title", app.name, "--sizes", drawn.string()},
                    desktop_->environment(),
                    {},
                    desktop_->home().scratch() / "apps.log",
                    {}}};
        require(eventually([&] { return std::filesystem::exists(drawn); }),
                "the window does not open");
        std::this_thread::sleep_for(between);
        program.signal(SIGTERM);
        static_cast<void>(program.waitForExit());
        std::this_thread::sleep_for(between);
    }
}

Subject::Cost Subject::changeDisplays(int changes) {
    // The program debounces changes for half a second.
    constexpr auto between = 700ms;
    const Cost before = spent();
    for (int i = 0; i < changes; ++i) {
        auto monitors = twoDisplays();
        if (i % 2 == 0)
            monitors.back().frame = {1920, 0, 1600, 900};
        desktop_->setMonitors(monitors);
        std::this_thread::sleep_for(between);
    }
    return costSince(before);
}

void Subject::launchAndEnd(std::span<const App> apps) const {
    constexpr auto between = 15ms;
    const XClient& client = desktop_->client();
    const auto others = client.managedWindows().size();
    std::vector<ChildProcess> running;
    for (const App& app : apps) {
        running.emplace_back(Command{TEST_APP,
                                     {"--class", windowClass(app), "--title", app.name},
                                     desktop_->environment(),
                                     {},
                                     desktop_->home().scratch() / "apps.log",
                                     {}});
    }
    require(eventually([&] { return client.managedWindows().size() == others + apps.size(); }),
            "the apps do not start");
    std::this_thread::sleep_for(between);
    for (const auto& app : running)
        app.signal(SIGTERM);
    require(eventually([&] { return client.managedWindows().size() == others; }),
            "the apps do not end");
    std::this_thread::sleep_for(between);
}

void Subject::launchByTurns(int launches) const {
    constexpr std::size_t atOnce = 4;
    static_assert(2 * comparedLaunchers % atOnce == 0);
    std::size_t next = 0;
    for (int launched = 0; launched < launches; launched += static_cast<int>(atOnce)) {
        launchAndEnd(std::span{apps_}.subspan(next, atOnce));
        next = (next + atOnce) % apps_.size();
    }
}

double Subject::growth(int launches) const {
    constexpr auto longestAnimation = 3s;
    // The first round loads each app's icon.
    constexpr int rounds = 2;
    launchByTurns(rounds * static_cast<int>(apps_.size()));
    std::this_thread::sleep_for(longestAnimation);
    const long before = privateKilobytes(own());
    launchByTurns(launches);
    std::this_thread::sleep_for(longestAnimation);
    return static_cast<double>(privateKilobytes(own()) - before);
}

}
