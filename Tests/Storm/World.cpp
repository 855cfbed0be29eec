#include "Storm/World.hpp"

#include "Storm/Log.hpp"
#include "Storm/PreferencesText.hpp"

#include <algorithm>
#include <array>
#include <numeric>

namespace vireline::storm {
namespace {

const std::vector<Event>& allEvents() {
    static const std::vector<Event> events = [] {
        std::vector<Event> all;
        for (auto some : {pointerEvents(), surroundingEvents(), signalEvents(), windowEvents(),
                          settingsEvents(), timeEvents()})
            all.insert(all.end(), some.begin(), some.end());
        return all;
    }();
    return events;
}

const Event& anyEvent(test::Random& random) {
    const auto& events = allEvents();
    const int total = std::accumulate(events.begin(), events.end(), 0,
                                      [](int sum, const Event& e) { return sum + e.weight; });
    int left = random.integer(0, total - 1);
    for (const Event& event : events) {
        left -= event.weight;
        if (left < 0)
            return event;
    }
    return events.back();
}

bool hasReconciledSince(std::size_t lines) {
    const auto& all = loggedLines();
    return std::any_of(
        all.begin() + static_cast<std::ptrdiff_t>(std::min(lines, all.size())), all.end(),
        [](const std::string& line) { return line.find("] reconcile ") != line.npos; });
}

/// A small change of the number yields an entirely different sequence.
unsigned mixed(unsigned seed, int step) {
    std::seed_seq sequence{seed, static_cast<unsigned>(step)};
    std::array<unsigned, 1> mixture{};
    sequence.generate(mixture.begin(), mixture.end());
    return mixture.front();
}

}

World::World(unsigned seed)
    : seed_(seed)
    , callsBack_(seed % 2 == 1)
    , ports_(around.platform, *this, seed % 6 >= 4, seed % 6 < 2) {
    captureLog();
    test::Random random{mixed(seed, 0)};
    Settings settings;
    settings.sourceMode = random.boolean() ? SourceMode::mirror : SourceMode::manual;
    for (int i = random.integer(0, 5); i > 0; --i) {
        const AppRef& app = around.apps.at(static_cast<std::size_t>(random.integer(0, 8)));
        settings.manualApps.push_back({app.bundleID, app.name, app.url.path()});
    }
    settings.iconSize = random.boolean() ? 44 : random.integer(10, 120);
    settings.position = static_cast<DockPosition>(random.integer(0, 2));
    settings.autoHide = random.boolean();
    settings.magnificationEnabled = random.boolean();
    settings.anchorAppleDock = random.boolean();
    settings.onboardingCompleted = random.boolean();
    if (random.integer(0, 4) > 0) {
        around.platform.fileSystem.put(around.preferences(), preferencesText(settings));
        model.saved = settings;
    }
    around.platform.motionSettings.reduces = random.integer(0, 5) == 0;
    around.platform.fileEvents.waitsForMissingFiles = random.boolean();
    around.platform.screens.list = {{1, 0, {0, 0, 1920, 1080}, {0, 70, 1920, 1010}, 1},
                                    {2, 1, {1920, 0, 1280, 1024}, {1920, 0, 1280, 1024}, 1}};
    around.pins = {{.app = 0}, {.app = 2}, {.app = 3}};
    around.writePins();
    start();
}

World::~World() = default;

void World::start() {
    formsBefore_ = around.platform.programWindows.forms.size();
    toursBefore_ = around.platform.programWindows.tours.size();
    model.start();
    delegate_ = std::make_unique<AppDelegate>(ports_.ports());
    delegate_->applicationDidFinishLaunching();
    runs_ = true;
    look();
}

void World::end() {
    runs_ = false;
    model.quit();
    delegate_.reset();
    armed_.reset();
    lookForRemains();
}

void World::restart() {
    end();
    start();
}

void World::perform(int step) {
    step_ = step;
    story_.emplace_back();
    wasInterrupted_ = false;
    appsRead_.reset();
    linesWhenScreensWereRead_.reset();
    docksBefore_ = model.docks;
    test::Random random{mixed(seed_, step)};
    const Event& event = anyEvent(random);
    note('#', step, " at ", around.platform.runLoop.now(), " s: ", event.name);
    if (callsBack_ && event.mayComeFromWithin && random.integer(0, 2) == 0) {
        armed_.emplace(Armed{&event, random, random.integer(1, 12), step});
        note(" from within a coming call");
        return;
    }
    event.happen(*this, random);
    look();
}

void World::called(const char* what) {
    // The model advances through a period of time before the program does.
    const bool isAhead = model.now() != nanoseconds(around.platform.runLoop.now());
    if (isAhead || !armed_ || wasInterrupted_ || isCrowded_ || !runs_ || --armed_->callsLeft > 0)
        return;
    wasInterrupted_ = true;
    Armed now = *std::exchange(armed_, std::nullopt);
    note("; #", now.step, " from within ", what, ": ", now.event->name);
    now.event->happen(*this, now.random);
}

void World::screensRead() {
    // Only the first reading counts, since not every reader reconciles.
    if (wasInterrupted_ && !linesWhenScreensWereRead_)
        linesWhenScreensWereRead_ = loggedLines().size();
}

void World::runningAppsRead() {
    if (wasInterrupted_)
        appsRead_ = around.platform.running.apps;
}

/// The model has already processed the whole interrupted step. What the program has read only after
/// the interruption is now applied to the model as well.
void World::catchUp() {
    if (appsRead_)
        model.runningAppsRead(*appsRead_);
    if (linesWhenScreensWereRead_ && hasReconciledSince(*linesWhenScreensWereRead_))
        model.screensRead();
    if (!wasInterrupted_)
        return;
    std::vector<DockID> shown;
    for (const StormWindow* const window : windows_) {
        if (window->isShown)
            shown.push_back(window->id);
    }
    model.recognise(shown, ports_.windowsMade(), docksBefore_);
    cancelPresses();
    renewTiles();
    endAttention();
}

/// It is unknown which apps ran when the program looked for those that want attention, so each of
/// them gets it.
void World::endAttention() {
    for (const AppRef& app : around.apps)
        demandAttention({.demanding = {}, .active = app.bundleID});
    demandAttention({});
}

void World::demandAttention(const AppAttention& attention) {
    model.attentionChanged(attention);
    around.platform.running.demandAttention(attention);
}

/// It is unknown which tiles were laid out before the interruption, so all are laid out again.
void World::renewTiles() {
    constexpr std::uint32_t noTile = 100'000;
    model.iconsChanged();
    around.platform.icons.announceChange();
    for (StormWindow* const window : std::vector{windows_}) {
        if (isAlive(window) && window->isShown)
            window->openMenuByKey(noTile);
    }
}

/// It is unknown whether a press came before the interruption, or ended with a list that existed
/// only briefly, so all presses are cancelled. So are positions of the pointer.
void World::cancelPresses() {
    for (StormWindow* const window : std::vector{windows_}) {
        if (!isAlive(window) || !window->isShown)
            continue;
        window->cancel();
        for (const auto kind : {PointerEvent::Kind::cancelled, PointerEvent::Kind::exited}) {
            model.pointer(window->id, {kind, {}}, std::nullopt);
            window->listener().pointerEvent({kind, {}});
        }
        model.pointerWasInterrupted(window->id);
    }
}

void World::pass(double seconds) {
    // Whatever the program has deferred to its next turn.
    around.platform.runLoop.advance(0);
    Time left = nanoseconds(seconds);
    while (true) {
        const Time slice = std::min(left, model.nextDue().value_or(left));
        left -= slice;
        isCrowded_ = model.duesIn(slice) > 1;
        model.pass(slice);
        around.platform.runLoop.advance(static_cast<double>(slice) / 1e9);
        isCrowded_ = false;
        if (left == 0)
            break;
    }
}

void World::showFrames() {
    // A copy, because a frame may destroy windows, including its own.
    const auto shown = windows_;
    for (StormWindow* const window : shown) {
        if (isAlive(window) && window->isShown)
            window->showFrame();
    }
}

void World::settle() {
    for (int i = 0; i < 2; ++i) {
        const auto shown = windows_;
        for (StormWindow* const window : shown) {
            if (!isAlive(window) || !window->isShown)
                continue;
            window->cancel();
            window->leave(false, false);
            model.filesLeft(window->id);
            window->dragged.clear();
            window->listener().dragExited();
            if (window->hasMenu)
                window->closeMenu(std::nullopt);
        }
        for (int turn = 0; turn < 24; ++turn) {
            showFrames();
            pass(0.5);
        }
    }
    showFrames();
    if (!wasInterrupted_)
        lookAtRest();
}

StormWindow* World::anyWindow(test::Random& random) const {
    std::vector<StormWindow*> shown;
    std::ranges::copy_if(windows_, std::back_inserter(shown),
                         [](const StormWindow* window) { return window->isShown; });
    if (shown.empty())
        return nullptr;
    return shown.at(
        static_cast<std::size_t>(random.integer(0, static_cast<int>(shown.size()) - 1)));
}

bool World::isAlive(const StormWindow* window) const {
    return std::ranges::count(windows_, window) > 0;
}

test::FakeForm* World::form() const {
    const auto& forms = around.platform.programWindows.forms;
    return forms.size() > formsBefore_ ? forms.back().get() : nullptr;
}

test::FakeTour* World::tour() const {
    const auto& tours = around.platform.programWindows.tours;
    return tours.size() > toursBefore_ ? tours.back().get() : nullptr;
}

void World::pointer(DockID dock, const PointerEvent& event, std::optional<std::size_t> tile) {
    if (event.kind == PointerEvent::Kind::secondaryPressed)
        expectMenuOf(tile);
    model.pointer(dock, event, tile);
}

void World::presented(const StormWindow& window, const Scene& scene) {
    if (const auto fault = faultOf(scene))
        fail("dock ", window.id.display, " shows a scene with ", *fault);
}

}
