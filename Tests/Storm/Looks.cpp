/// The checks after every step.
#include "Storm/Log.hpp"
#include "Storm/PreferencesText.hpp"
#include "Storm/World.hpp"

#include <algorithm>
#include <array>
#include <set>

namespace vireline::storm {
namespace {

constexpr double tolerance = 1e-6;

/// The window mover's messages depend on other programs' windows, which are not modelled.
bool isOfTheWindowMover(const std::string& message) {
    constexpr std::array<std::string_view, 3> beginnings{"placement ", "summon pid ", "fill pid "};
    return std::ranges::any_of(beginnings, [&](auto text) { return message.starts_with(text); });
}

bool isReconcile(const std::string& line) {
    return line.starts_with("reconcile ");
}

/// The start along the dock's axis.
double startAlong(const Rect& rect, DockPosition position) {
    return position == DockPosition::bottom ? rect.x : rect.y;
}

double lengthAlong(const Rect& rect, DockPosition position) {
    return position == DockPosition::bottom ? rect.width : rect.height;
}

}

void World::look() {
    catchUp();
    for (StormWindow* const window : std::vector{windows_}) {
        if (!isAlive(window) || !window->isShown)
            continue;
        if (const ModelDock* const dock = model.find(window->id))
            lookAtTiles(*window, *dock);
    }
    lookAtDocks();
    lookAtLog();
    lookAtDisk();
    lookAtGuard();
    lookAtForm();
    if (around.platform.dockPreferences.reads != model.mirrorReads)
        fail("the pins were read ", around.platform.dockPreferences.reads, " times instead of ",
             model.mirrorReads);
    const int watches = around.platform.fileEvents.watchCount(around.desktopsDock);
    if (watches != (model.watchesFile ? 1 : 0))
        fail("the file of the desktop's dock has ", watches, " watches");
}

void World::lookAtLog() {
    std::vector<std::string> messages;
    for (const std::string& line : takeLoggedLines()) {
        const auto message = messageOf(line);
        if (!message)
            return fail("a line of the log has another form: ", line);
        if (!isOfTheWindowMover(*message))
            messages.push_back(*message);
    }
    const auto expected = std::exchange(model.lines, {});
    if (wasInterrupted_) {
        // Reconciliations requested from within one may be combined.
        const auto made = std::ranges::count_if(messages, isReconcile);
        const auto due = std::ranges::count_if(expected, isReconcile);
        if ((made == 0) != (due == 0) || made > 2 * due)
            fail(made, " reconciles where ", due, " were due");
        return;
    }
    for (std::size_t i = 0; i < std::max(messages.size(), expected.size()); ++i) {
        const bool isLogged = i < messages.size();
        const bool isExpected = i < expected.size();
        if (isLogged && isExpected && matches(messages[i], expected[i]))
            continue;
        return fail("the log says \"", isLogged ? messages[i] : "nothing", "\" instead of \"",
                    isExpected ? expected[i] : "nothing", "\"");
    }
}

void World::lookAtDisk() {
    const auto& files = around.platform.fileSystem;
    const std::string path = around.preferences().path();
    const auto writes = files.writes.find(path);
    const std::size_t made = writes == files.writes.end() ? 0 : writes->second.size();
    const auto expected = std::exchange(model.saves, {});
    if (made != writesSeen_ + expected.size())
        return fail(made - writesSeen_, " saves instead of ", expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (!says(writes->second[writesSeen_ + i], expected[i]))
            return fail("a save of other settings: ", writes->second[writesSeen_ + i]);
    }
    writesSeen_ = made;
    const auto file = files.files.find(path);
    const bool isThere = file != files.files.end();
    if (isThere != (model.saved.has_value() || model.fileIsDamaged))
        return fail(isThere ? "a settings' file" : "no settings' file");
    if (isThere && !model.fileIsDamaged && !says(file->second, *model.saved))
        fail("the settings' file holds something else than the last save");
}

void World::lookAtDocks() {
    std::map<std::uint32_t, int> shown;
    for (const StormWindow* const window : windows_) {
        if (!window->isShown)
            continue;
        ++shown[window->id.display];
        const auto found = model.docks.find(window->id.display);
        if (found == model.docks.end())
            return fail("display ", window->id.display, " has a dock and should have none");
        const ModelDock& dock = found->second;
        Rect frame = dock.frame;
        if (dock.hides)
            frame = dock.isIn ? sliverOf(dock.frame, dock.position)
                              : hoverFrameOf(dock.frame, dock.position);
        if (!isNear(window->frame, frame))
            return fail("dock ", window->id.display, " is at ", window->frame, " instead of ",
                        frame);
        const Rect hosted = hostedFrameOf(dock.frame, dock.position, dock.hides, dock.isIn);
        if (!isNear(window->hosted, hosted))
            return fail("the view of dock ", window->id.display, " is at ", window->hosted,
                        " instead of ", hosted);
        const bool isDragging = dock.press && dock.press->isDragging;
        if (window->watchesForCancel != isDragging)
            return fail("dock ", window->id.display, isDragging ? " forgets" : " thinks of",
                        " a tile that is dragged");
        if (!wasInterrupted_ && !dock.isIn && model.bobsVisibly() && !window->awaitsFrame)
            return fail("dock ", window->id.display, " has a tile that should bob and rests");
    }
    for (const auto& [display, dock] : model.docks) {
        if (shown[display] != 1)
            return fail("display ", display, " has ", shown[display], " docks");
    }
}

void World::lookAtTiles(StormWindow& window, const ModelDock& dock) {
    const auto tiles = window.tiles();
    if (dock.isIn) {
        if (!tiles.empty())
            fail("a hidden dock presents its tiles");
        return;
    }
    std::vector<std::pair<std::string, std::optional<std::string>>> expected;
    expected.reserve(model.items.size() + 2);
    for (const DockItem& item : model.items)
        expected.emplace_back(item.name, model.valueOf(item));
    if (dock.hasDownloads)
        expected.emplace_back("Downloads", std::nullopt);
    if (dock.hasTrash)
        expected.emplace_back("Trash", std::nullopt);
    if (tiles.size() != expected.size())
        return fail("dock ", dock.id.display, " has ", tiles.size(), " tiles instead of ",
                    expected.size());
    std::set<std::uint32_t> ids;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        ids.insert(tiles[i].id);
        if (tiles[i].label != expected[i].first || tiles[i].value != expected[i].second)
            return fail("tile ", i, " is ", tiles[i].label, ", ", tiles[i].value.value_or("no app"),
                        ", instead of ", expected[i].first, ", ",
                        expected[i].second.value_or("no app"));
        if (tiles[i].hasMenu != (i < model.items.size()))
            return fail("tile ", i, tiles[i].hasMenu ? " has a menu" : " has no menu");
    }
    if (ids.size() != tiles.size())
        fail("two tiles have one identity");
    lookAtPlaces(window, dock, tiles);
}

void World::lookAtPlaces(const StormWindow& window, const ModelDock& dock,
                         const std::vector<AccessibleTile>& tiles) {
    if (model.magnification() > 1 && !dock.isCursorKnown)
        return;
    const double view = lengthAlong(window.hosted, dock.position);
    const auto expected = expectedPlaces(window, dock);
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const Rect& frame = tiles[i].frame;
        const double at = startAlong(frame, dock.position);
        const double size = lengthAlong(frame, dock.position);
        if (std::abs(at - expected[i].start) > tolerance ||
            std::abs(size - expected[i].length) > tolerance || frame.width < 0 || frame.height < 0)
            return fail("tile ", i, " of dock ", dock.id.display, " lies at ", frame,
                        "; expected along the axis: ", expected[i].start, ", ", expected[i].length);
    }
    if (!tiles.empty() && expected.back().start + expected.back().length > view + tolerance)
        fail("the tiles of dock ", dock.id.display, " overflow its view of ", view);
}

std::vector<TileExtent> World::expectedPlaces(const StormWindow& window,
                                              const ModelDock& dock) const {
    return tileExtents(
        {.counts = model.counts(),
         .iconSize = fittedIconSize(model.counts(), dock.available, model.settings.iconSize),
         .magnification = model.magnification(),
         .view = lengthAlong(window.hosted, dock.position),
         .cursor = model.magnification() > 1 ? dock.cursor : std::nullopt,
         .hasDownloads = dock.hasDownloads,
         .hasTrash = dock.hasTrash});
}

void World::lookAtGuard() {
    auto& taps = around.platform.pointerTaps;
    const bool isActive = model.guard == Model::Guard::active;
    if (taps.isTapped() != isActive || taps.isEnabled() != isActive)
        return fail("the pointer is ", taps.isTapped() ? "guarded" : "not guarded");
    if (around.platform.accessibility.prompts != model.prompts)
        return fail(around.platform.accessibility.prompts, " prompts for the permission");
    for (const PlatformScreen& screen : around.platform.screens.list) {
        const double height = around.platform.screens.list.front().frame.height;
        const double bottom = height - screen.frame.y;
        for (const double rise : {-1.0, 0.0, 2.5, 3.0, 3.5}) {
            for (const double x : {screen.frame.x, screen.frame.midX(), screen.frame.maxX()}) {
                const Point to{x, bottom - rise};
                const Point expected = isActive ? keptOut(to, model.bands, model.displays) : to;
                if (taps.move(to) != expected)
                    return fail("the pointer at ", to, " is not kept at ", expected);
            }
        }
    }
}

void World::lookAtForm() {
    const test::FakeForm* const shown = form();
    if (shown == nullptr || !shown->isVisible)
        return;
    const Settings& settings = model.settings;
    const auto toggled = [&](SettingsField field) {
        return std::get<Toggle>(test::rowOf(shown->content, field).control).isOn;
    };
    const auto slid = [&](SettingsField field) {
        return std::get<Slider>(test::rowOf(shown->content, field).control).value;
    };
    using Field = SettingsField;
    const auto& source = test::rowOf(shown->content, Field::sourceMode);
    const auto& position = test::rowOf(shown->content, Field::position);
    const auto& anchor = test::rowOf(shown->content, Field::anchorAppleDock);
    const bool hasSlider = test::findRow(shown->content, Field::magnification) != nullptr;
    const bool isRight =
        std::get<RadioGroup>(source.control).selected == (model.isManual() ? 1U : 0U) &&
        std::get<Segments>(position.control).selected ==
            static_cast<std::size_t>(settings.position) &&
        slid(Field::iconSize) == std::clamp(settings.iconSize, 32.0, 64.0) &&
        toggled(Field::magnificationEnabled) == settings.magnificationEnabled &&
        hasSlider == settings.magnificationEnabled &&
        toggled(Field::autoHide) == settings.autoHide &&
        toggled(Field::anchorAppleDock) == settings.anchorAppleDock &&
        anchor.status.has_value() == settings.anchorAppleDock &&
        toggled(Field::openOnThisDisplay) == settings.openOnThisDisplay &&
        toggled(Field::summonOnClick) == settings.summonOnClick &&
        toggled(Field::fillOnDoubleClick) == settings.fillOnDoubleClick;
    if (!isRight)
        fail("the settings window shows other settings");
    const bool saysActive = anchor.status && anchor.status->text.starts_with("Active");
    if (saysActive != (model.guard == Model::Guard::active && settings.anchorAppleDock))
        fail("the settings window says that the guard ", saysActive ? "is" : "is not", " active");
}

/// The checks after the program has ended.
void World::lookForRemains() {
    const auto& platform = around.platform;
    if (!windows_.empty())
        fail(windows_.size(), " docks' windows are left");
    if (platform.runLoop.pendingTimers() != 0)
        fail(platform.runLoop.pendingTimers(), " timers are left");
    if (ports_.listenerCount() != 0)
        fail(ports_.listenerCount(), " listeners are left");
    if (platform.fileEvents.watchCount(around.desktopsDock) != 0)
        fail("a watch of the desktop's dock's file is left");
    if (platform.pointerTaps.isTapped())
        fail("the tap of the pointer is left");
    if (platform.statusBar.item)
        fail("the status item is left");
    const auto isHeld = [](const auto& window) { return window.use_count() > 1; };
    if (std::ranges::any_of(platform.programWindows.forms, isHeld) ||
        std::ranges::any_of(platform.programWindows.tours, isHeld))
        fail("a window of the program's own is left");
}

/// Nothing may be moving or scheduled to move.
void World::lookAtRest() {
    if (around.platform.runLoop.pendingTimers() != model.restingTimers())
        fail(around.platform.runLoop.pendingTimers(), " timers at rest instead of ",
             model.restingTimers());
    for (StormWindow* const window : std::vector{windows_}) {
        const ModelDock* const dock = model.find(window->id);
        if (!window->isShown || dock == nullptr) {
            fail("a window that was ordered out is still there");
            continue;
        }
        const bool bounces = std::ranges::any_of(
            model.items, [&](const DockItem& item) { return model.launching.contains(item.id); });
        const bool mayMove = bounces && !dock->isIn && !around.platform.motionSettings.reduces;
        if (window->awaitsFrame && !mayMove)
            fail("dock ", dock->id.display, " asks for frames at rest");
        if (dock->isIn)
            lookAtLineMarks(*window, *dock);
        else
            lookAtSignals(*window, *dock);
    }
}

}
