#include "Soak/SoakSteps.hpp"

#include "Foundation/NonCopyable.hpp"
#include "Soak/SettingsSteps.hpp"
#include "Soak/SoakChecks.hpp"
#include "VirtualDesktop/FileDrag.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <iterator>

namespace vireline::desktop {
namespace {

const App& anyOf(SoakWorld& world, const std::vector<App>& apps) {
    return apps.at(world.any(apps.size()));
}

/// A dock with tiles at fixed positions; nullopt if docks hide.
std::optional<DockLayout> anyShownDock(SoakWorld& world) {
    const auto dock = world.settings().autoHide ? std::nullopt : world.anyDock();
    return dock ? std::optional{world.layout(*dock)} : std::nullopt;
}

/// Clicks a tile and keeps the pointer there until the program has reacted.
void clickTile(SoakWorld& world, const DockLayout& dock, std::size_t index) {
    const int before = world.desktop().log().count("click ");
    world.desktop().pointer().click(dock.icon(static_cast<int>(index)));
    require(world.desktop().log().reaches("click ", before + 1), "a click has no effect");
}

// Apps.

void launch(SoakWorld& world) {
    if (const auto apps = world.notRunning(); !apps.empty())
        world.launch(anyOf(world, apps));
}

void launchFromDock(SoakWorld& world) {
    const auto apps = world.pinned();
    const auto dock = anyShownDock(world);
    if (!dock)
        return;
    const auto index = world.any(apps.size());
    const App& app = apps.at(index);
    const bool wasRunning = world.isRunning(app);
    clickTile(world, *dock, index);
    if (!wasRunning)
        require(eventually([&] { return world.isRunning(app); }),
                app.name + " is not launched by its tile");
}

void clickRunning(SoakWorld& world) {
    const auto unpinned = world.runningUnpinned();
    const auto dock = anyShownDock(world);
    if (!dock || unpinned.empty())
        return;
    clickTile(world, *dock, world.pinned().size() + world.any(unpinned.size()));
}

void quit(SoakWorld& world) {
    world.endSuspensions();
    if (const auto apps = world.running(); !apps.empty())
        world.quit(anyOf(world, apps), world.onceIn(2) ? SIGTERM : SIGKILL);
}

void hang(SoakWorld& world) {
    if (const auto apps = world.running(); !apps.empty())
        world.suspend(anyOf(world, apps));
}

void goOn(SoakWorld& world) {
    world.endSuspensions();
}

void moveWindows(SoakWorld& world) {
    constexpr std::uint32_t everything = 15U << 8U;
    const auto& client = world.desktop().client();
    for (const xcb_window_t window : client.managedWindows()) {
        const auto place = [&] { return static_cast<std::uint32_t>(world.any(3000)); };
        const auto length = [&] { return static_cast<std::uint32_t>(50 + world.any(1500)); };
        client.sendToRoot(window, "_NET_MOVERESIZE_WINDOW",
                          {everything, place(), place(), length(), length()});
    }
    client.sync();
}

// The dock.

void sweep(SoakWorld& world) {
    const auto dock = world.anyDock();
    if (!dock)
        return;
    const PixelRect& display = dock->monitor.frame;
    constexpr int steps = 40;
    for (int i = 0; i < steps; ++i) {
        const int x =
            display.x + static_cast<int>(world.any(static_cast<std::size_t>(display.width)));
        const int y = dock->frame.y + static_cast<int>(world.any(60));
        world.desktop().pointer().moveTo({x, std::min(y, display.bottom() - 1)});
    }
}

void openMenu(SoakWorld& world) {
    const auto dock = anyShownDock(world);
    if (!dock)
        return;
    world.desktop().pointer().click(dock->icon(static_cast<int>(world.any(world.pinned().size()))),
                                    Pointer::Button::secondary);
    const auto isOpen = [&] { return !world.desktop().docks().menus().empty(); };
    require(eventually(isOpen), "no menu opens");
    // A menu accepts keys only shortly after it becomes visible.
    constexpr int tries = 20;
    for (int i = 0; i < tries && isOpen(); ++i) {
        world.desktop().keyboard().type(Keyboard::escape);
        static_cast<void>(eventually([&] { return !isOpen(); }, std::chrono::seconds{1}));
    }
    require(!isOpen(), "the menu does not close");
}

/// Drags from tile to tile. Returns true if it ended with a release, false if it was cancelled.
bool drag(SoakWorld& world, const DockLayout& dock, int from, int to) {
    const auto pointer = world.desktop().pointer();
    const PixelPoint start = dock.icon(from);
    const PixelPoint end = dock.icon(to);
    pointer.moveTo(start);
    pointer.press(Pointer::Button::primary);
    constexpr int steps = 12;
    for (int i = 1; i <= steps; ++i)
        pointer.moveTo(
            {start.x + (end.x - start.x) * i / steps, start.y + (end.y - start.y) * i / steps});
    const bool isCancelled = world.onceIn(4);
    if (isCancelled) {
        const Colour tile = world.pinned().at(static_cast<std::size_t>(from)).colour;
        require(eventually([&] { return !isSame(world.desktop().pixel(start), tile); }),
                "a tile does not follow the pointer");
        world.desktop().keyboard().type(Keyboard::escape);
    }
    pointer.release(Pointer::Button::primary);
    return !isCancelled;
}

bool isManual(const Settings& settings) {
    return settings.sourceMode == SourceMode::manual;
}

bool has(const std::vector<StoredApp>& apps, const std::string& id) {
    return std::ranges::find(apps, id, &StoredApp::bundleID) != apps.end();
}

std::vector<std::string> identifiers(const std::vector<App>& apps) {
    std::vector<std::string> ids;
    std::ranges::transform(apps, std::back_inserter(ids), &App::id);
    std::ranges::sort(ids);
    return ids;
}

/// The list that a drag edits. Editing a mirrored list brings back the user's own, if there is one.
std::vector<std::string> editedList(SoakWorld& world) {
    const auto& own = world.settings().manualApps;
    std::vector<std::string> ids;
    if (own.empty())
        return identifiers(world.pinned());
    std::ranges::transform(own, std::back_inserter(ids), &StoredApp::bundleID);
    std::ranges::sort(ids);
    return ids;
}

void dragTile(SoakWorld& world) {
    const auto dock = anyShownDock(world);
    const auto apps = world.pinned();
    const auto list = editedList(world);
    if (!dock || apps.size() < 2)
        return;
    const auto from = world.any(apps.size());
    const auto to = (from + 1 + world.any(apps.size() - 1)) % apps.size();
    const std::string line = "manual move " + apps.at(from).id + ' ';
    const int before = world.desktop().log().count(line);
    const bool isDropped = drag(world, *dock, static_cast<int>(from), static_cast<int>(to));
    if (!isDropped)
        return;
    // The restored list may lack the app, or already have it at that position.
    const bool comesBack = !isManual(world.settings());
    require(world.desktop().log().reaches(line, before + 1) || comesBack, "a drag moves nothing");
    world.awaitSave(isManual);
    require(identifiers(world.pinned()) == list, "a drag loses or makes a tile");
}

void dropOnDock(SoakWorld& world, const std::filesystem::path& file, int tile,
                const DockLayout& dock) {
    FileDrag drag{world.desktop(), {urlList({file})}};
    static_cast<void>(drag.moveTo(dock.icon(tile)));
    const std::string result = drag.drop();
    require(result.starts_with("done"), "a drop is not taken: " + result);
    drag.program().signal(SIGTERM);
    static_cast<void>(drag.program().waitForExit());
}

void dropApp(SoakWorld& world) {
    const auto dock = anyShownDock(world);
    const auto pinned = identifiers(world.pinned());
    const auto& app = anyOf(world, world.apps());
    if (!dock || std::ranges::binary_search(pinned, app.id))
        return;
    dropOnDock(world, world.desktop().home().entry(app.id), 0, *dock);
    world.awaitSave(
        [&](const Settings& saved) { return isManual(saved) && has(saved.manualApps, app.id); });
}

void dropOnTrash(SoakWorld& world) {
    const auto dock = anyShownDock(world);
    if (!dock)
        return;
    const auto file = world.desktop().home().folder() / "unwanted";
    writeFile(file, "unwanted");
    const auto planned = world.request();
    const int trash = planned.counts.pinned + planned.counts.unpinnedRunning + 1;
    dropOnDock(world, file, trash, *dock);
    require(eventually([&] { return !std::filesystem::exists(file); }),
            "a file that was dropped on the Trash is still there");
}

// The screen and the session.

void changeMonitors(SoakWorld& world) {
    world.setMonitors(world.any(SoakWorld::arrangementCount()));
    // Sometimes the next change comes before the program has reacted to this one.
    if (world.onceIn(3))
        world.setMonitors(world.any(SoakWorld::arrangementCount()));
}

void restartWindowManager(SoakWorld& world) {
    world.desktop().stopWindowManager();
    world.desktop().startWindowManager();
}

void toggleCompositor(SoakWorld& world) {
    if (world.onceIn(2))
        world.desktop().startCompositor();
    else
        world.desktop().stopCompositor();
}

void loseBus(SoakWorld& world) {
    world.loseBus();
}

/// Suspends a process for its lifetime.
class Hang : private NonCopyable {
public:
    explicit Hang(pid_t process) : process_(process) { ::kill(process_, SIGSTOP); }
    ~Hang() { ::kill(process_, SIGCONT); }

private:
    pid_t process_;
};

/// Whether this run of the program has launched an app.
bool hasLaunched(SoakWorld& world) {
    const auto messages = world.desktop().log().messages();
    const auto start = std::ranges::find_if(messages.rbegin(), messages.rend(), [](const auto& m) {
        return m.starts_with("Vireline started");
    });
    return std::any_of(start.base(), messages.end(),
                       [](const auto& m) { return m.starts_with("click launch "); });
}

/// With its first launch GIO loads its knowledge of file systems, which waits for the bus. The
/// docks are unaffected, but the app starts half a minute late.
void hangBus(SoakWorld& world) {
    const pid_t bus = world.desktop().sessionBus();
    if (bus == 0 || !hasLaunched(world))
        return;
    const Hang hang{bus};
    launchFromDock(world);
    checkDesktop(world);
}

/// Nothing painted is visible in the meantime.
void hangCompositor(SoakWorld& world) {
    const pid_t compositor = world.desktop().compositor();
    if (compositor == 0)
        return;
    const Hang hang{compositor};
    sweep(world);
    launchFromDock(world);
}

DockOrdering::Counts tileCounts(SoakWorld& world) {
    const auto request = world.request();
    return request.counts;
}

void changePins(SoakWorld& world) {
    std::vector<std::string> ids;
    for (const App& app : world.apps()) {
        if (world.onceIn(2))
            ids.push_back(app.id);
    }
    if (ids.empty())
        return;
    const auto before = tileCounts(world);
    const auto list = world.mirrored();
    world.pin(ids);
    // Docks change their length only when the number of tiles changes. If just a separator appears
    // or disappears, they keep it until something else happens, which cannot be checked.
    if (const auto now = tileCounts(world);
        now.tiles() == before.tiles() && now.separators() != before.separators())
        world.pin(list);
}

}

std::span<const SoakStep> soakSteps() {
    static const std::array steps{
        SoakStep{"an app starts", 8, launch},
        SoakStep{"a tile launches its app", 6, launchFromDock},
        SoakStep{"the tile of a running app is clicked", 4, clickRunning},
        SoakStep{"an app ends", 6, quit},
        SoakStep{"an app hangs", 2, hang},
        SoakStep{"the apps that hung go on", 2, goOn},
        SoakStep{"windows move", 3, moveWindows},
        SoakStep{"the pointer wanders over a dock", 4, sweep},
        SoakStep{"a menu opens and closes", 3, openMenu},
        SoakStep{"a tile is dragged", 4, dragTile},
        SoakStep{"an app is dropped on a dock", 2, dropApp},
        SoakStep{"a file is dropped on the Trash", 2, dropOnTrash},
        SoakStep{"the displays change", 5, changeMonitors},
        SoakStep{"the window manager restarts", 2, restartWindowManager},
        SoakStep{"the compositor comes or goes", 2, toggleCompositor},
        SoakStep{"the compositor hangs", 2, hangCompositor},
        SoakStep{"the session bus hangs", 2, hangBus},
        SoakStep{"the session bus goes away", 1, loseBus},
        SoakStep{"the icon size changes", 2, changeSize},
        SoakStep{"the position changes", 2, changePosition},
        SoakStep{"the source changes", 1, changeSource},
        SoakStep{"the desktop's own list changes", 3, changePins},
        SoakStep{"the preferences file is replaced", 2, replacePreferences},
        SoakStep{"the disk fails once", 1, failDisk},
        SoakStep{"the program restarts", 1, restart},
    };
    return steps;
}

void warmUp(SoakWorld& world) {
    const App app = world.apps().back();
    world.launch(app);
    checkDesktop(world);
    openMenu(world);
    world.openSettings();
    world.closeSettings();
    world.endApps();
    checkDesktop(world);
}

}
