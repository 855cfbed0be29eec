#include "Soak/SoakWorld.hpp"

#include "Settings/SettingsCoding.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <signal.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <utility>

namespace vireline::desktop {
namespace {

constexpr int appCount = 10;

using Arrangement = std::vector<Monitor>;

/// A soak starts with the first. Each has a primary display and other displays for docks.
const std::array<Arrangement, 6>& arrangements() {
    static const std::array<Arrangement, 6> all{
        Arrangement{{"left", {0, 0, 1920, 1080}}, {"right", {1920, 0, 1920, 1080}}},
        Arrangement{{"left", {0, 0, 1920, 1080}}},
        Arrangement{{"left", {0, 0, 1920, 1080}},
                    {"right", {1920, 0, 1280, 1024}},
                    {"below", {0, 1080, 1600, 900}}},
        Arrangement{{"left", {0, 0, 1280, 800}}, {"right", {1280, 300, 1080, 1920}}},
        Arrangement{{"right", {1920, 0, 1920, 1080}}, {"left", {0, 0, 1920, 1080}}},
        Arrangement{{"left", {1024, 768, 1024, 768}},
                    {"above", {1024, 0, 1024, 768}},
                    {"side", {0, 768, 1024, 768}},
                    {"right", {2048, 768, 1920, 1080}}}};
    return all;
}

std::vector<App> makeApps() {
    std::vector<App> apps;
    for (int i = 0; i < appCount; ++i) {
        const std::string name = "App" + std::to_string(i);
        apps.push_back({"org.example." + name, name, distinctColour(i), {}, {}});
    }
    return apps;
}

VirtualDesktop::Options options() {
    VirtualDesktop::Options options;
    options.monitors = arrangements().front();
    options.accessibility = true;
    return options;
}

bool has(const std::vector<App>& apps, const App& app) {
    return std::ranges::find(apps, app.id, &App::id) != apps.end();
}

}

SoakWorld::SoakWorld(Programs programs, unsigned seed, std::vector<std::string> through)
    : random_(seed)
    , apps_(makeApps())
    , through_(std::move(through))
    , desktop_(std::make_unique<VirtualDesktop>(std::move(programs), options())) {
    for (const App& app : apps_)
        desktop_->home().install(app);
    // In a soak the pinned list is never empty, because the program would then use another list.
    pin({apps_[0].id, apps_[1].id, apps_[2].id});
    desktop_->home().writePreferences(R"({"onboardingCompleted": true})");
    start();
}

std::size_t SoakWorld::any(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>{0, count - 1}(random_);
}

void SoakWorld::start() {
    const auto text = readFile(desktop_->home().preferences());
    settings_ = SettingsCoding::decode(text).value_or(Settings{});
    replacement_.reset();
    const int before = desktop_->log().count("reconcile ");
    desktop_->startVirelineThrough(through_);
    if (!eventually([&] { return desktop_->log().count("reconcile ") > before; }))
        throw Violation{"the program does not start"};
    if (!settings_.onboardingCompleted)
        desktop_->keyboard().type(Keyboard::escape);
}

bool SoakWorld::isSettings(xcb_window_t window) const {
    return desktop_->client().text(window, "_NET_WM_NAME") == "Vireline Settings";
}

bool SoakWorld::areSettingsOpen() const {
    return isSettings(desktop_->client().focusedWindow());
}

bool SoakWorld::areSettingsAt(PixelPoint place) const {
    return std::ranges::any_of(desktop_->client().windowsAt(place),
                               [this](xcb_window_t window) { return isSettings(window); });
}

void SoakWorld::openSettings() {
    ChildProcess second{
        {desktop_->programs().vireline.string(), {}, desktop_->environment(), {}, {}, {}}};
    if (second.waitForExit() != 0)
        throw Violation{"a second start does not end"};
    if (!eventually([&] { return areSettingsOpen(); }))
        throw Violation{"the settings do not open"};
}

void SoakWorld::scrollSettings() {
    const auto frame = desktop_->client().frame(desktop_->client().focusedWindow());
    desktop_->pointer().click(frame.value_or(PixelRect{}).center(), Pointer::Button::wheelDown);
}

void SoakWorld::closeSettings() {
    desktop_->keyboard().type(Keyboard::escape);
    if (!eventually([&] { return !areSettingsOpen(); }))
        throw Violation{"the settings do not close"};
}

void SoakWorld::end() {
    openSettings();
    desktop_->keyboard().typeWithControl('q');
    const auto code = desktop_->vireline().waitForExit();
    desktop_->stopVireline();
    if (code != 0)
        throw Violation{"the program ends with " + (code ? std::to_string(*code) : "a hang")};
}

void SoakWorld::kill() {
    desktop_->vireline().signal(SIGKILL);
    static_cast<void>(desktop_->vireline().waitForExit());
    desktop_->stopVireline();
}

void SoakWorld::awaitSave(const std::function<bool(const Settings&)>& isExpected) {
    Settings saved;
    const bool isSaved = eventually([&] {
        const auto content = readFile(desktop_->home().preferences());
        const auto decoded = SettingsCoding::decode(content);
        saved = decoded.value_or(settings_);
        return decoded && content != replacement_ && isExpected(saved);
    });
    if (!isSaved)
        throw Violation{"the program does not save its settings"};
    settings_ = saved;
    replacement_.reset();
}

void SoakWorld::replaceFile(const std::string& content) {
    const auto file = desktop_->home().preferences();
    std::filesystem::remove(file);
    writeFile(file, content);
    replacement_ = content;
}

void SoakWorld::loseBus() {
    desktop_->stopSessionBus();
    hasBus_ = false;
}

std::set<pid_t> SoakWorld::processesOf(const App& app) const {
    std::set<pid_t> processes;
    for (const xcb_window_t window : desktop_->windowsOf(app)) {
        const auto items = desktop_->client().items(window, "_NET_WM_PID");
        if (!items.empty() && items.front() > 1)
            processes.insert(static_cast<pid_t>(items.front()));
    }
    return processes;
}

void SoakWorld::launch(const App& app) {
    const auto windows = std::to_string(1 + any(3));
    const auto milliseconds = std::to_string(any(300));
    desktop_->launch(app, {"--windows", windows, "--delay", milliseconds});
    if (!eventually([&] { return isRunning(app); }))
        throw std::runtime_error{app.name + " shows no window"};
}

void SoakWorld::quit(const App& app, int signal) {
    for (const pid_t process : processesOf(app))
        ::kill(process, signal);
    if (!eventually([&] { return !isRunning(app); }))
        throw std::runtime_error{app.name + " does not end"};
}

void SoakWorld::suspend(const App& app) {
    for (const pid_t process : processesOf(app)) {
        ::kill(process, SIGSTOP);
        suspended_.insert(process);
    }
}

void SoakWorld::endSuspensions() {
    for (const pid_t process : std::exchange(suspended_, {}))
        ::kill(process, SIGCONT);
}

void SoakWorld::endApps() {
    endSuspensions();
    for (const App& app : running())
        quit(app, SIGTERM);
}

bool SoakWorld::isRunning(const App& app) const {
    return !desktop_->windowsOf(app).empty();
}

std::vector<App> SoakWorld::running() const {
    std::vector<App> found = apps_;
    std::erase_if(found, [&](const App& app) { return !isRunning(app); });
    return found;
}

std::vector<App> SoakWorld::notRunning() const {
    std::vector<App> found = apps_;
    std::erase_if(found, [&](const App& app) { return isRunning(app); });
    return found;
}

void SoakWorld::pin(const std::vector<std::string>& ids) {
    mirrored_ = ids;
    desktop_->home().pin(pinnedOf(ids));
}

std::vector<App> SoakWorld::pinnedOf(const std::vector<std::string>& ids) const {
    std::vector<App> pinned;
    for (const std::string& id : ids) {
        const auto found = std::ranges::find(apps_, id, &App::id);
        if (found == apps_.end())
            throw Violation{"not installed: " + id};
        pinned.push_back(*found);
    }
    return pinned;
}

std::vector<App> SoakWorld::pinned() const {
    if (settings_.sourceMode == SourceMode::mirror)
        return pinnedOf(mirrored_);
    std::vector<std::string> ids;
    std::ranges::transform(settings_.manualApps, std::back_inserter(ids), &StoredApp::bundleID);
    return pinnedOf(ids);
}

std::vector<App> SoakWorld::runningUnpinned() const {
    std::vector<App> apps = running();
    std::erase_if(apps, [pinned = pinned()](const App& app) { return has(pinned, app); });
    return apps;
}

void SoakWorld::setMonitors(std::size_t arrangement) {
    desktop_->setMonitors(arrangements().at(arrangement));
}

std::size_t SoakWorld::arrangementCount() {
    return arrangements().size();
}

PanelPlanner::Request SoakWorld::request() const {
    PanelPlanner::Request request;
    request.counts.pinned = static_cast<int>(pinned().size());
    request.counts.unpinnedRunning = static_cast<int>(runningUnpinned().size());
    request.maxIconSize = settings_.iconSize;
    request.position = settings_.position;
    request.magnification = effectiveMagnification(settings_);
    return request;
}

std::optional<PlannedDock> SoakWorld::anyDock() {
    const auto docks = desktop_->planned(request());
    if (docks.empty())
        return std::nullopt;
    return docks.at(any(docks.size()));
}

DockLayout SoakWorld::layout(const PlannedDock& dock) const {
    const auto planned = request();
    return {dock, planned.counts, planned.maxIconSize};
}

void SoakWorld::parkPointer() {
    const auto& primary = desktop_->displays().monitors.front().frame;
    desktop_->pointer().moveTo({primary.x + 5, primary.y + 5});
}

}
