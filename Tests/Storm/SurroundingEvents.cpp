/// Changes in the program's environment: displays, apps, the desktop's own dock, files.
#include "Storm/World.hpp"

#include <algorithm>

namespace vireline::storm {
namespace {

using test::Random;

const AppRef& anyApp(World& world, Random& random) {
    return world.around.apps.at(static_cast<std::size_t>(random.integer(0, 8)));
}

void announceScreens(World& world, Random& random) {
    for (int i = random.integer(0, 2); i > 0; --i) {
        world.model.screensAnnounced();
        world.around.platform.screens.announceChange();
    }
}

/// Up to four displays side by side, with the desktop's own dock on one of them or on none.
void changeScreens(World& world, Random& random) {
    auto& list = world.around.platform.screens.list;
    list.clear();
    double x = 0;
    const int count = random.integer(0, 12) == 0 ? random.integer(0, 1) : random.integer(2, 4);
    const int host = random.integer(0, count);
    for (int i = 0; i < count; ++i) {
        const Rect frame{x, i == 0 ? 0.0 : 100.0 * random.integer(-2, 2),
                         random.boolean() ? 1920.0 : 480.0 * random.integer(1, 5),
                         120.0 * random.integer(4, 12)};
        PlatformScreen screen{static_cast<std::uint32_t>(i + 1), 0, frame, frame, 1};
        if (i == host) {
            const int edge = random.integer(0, 2);
            screen.visibleFrame.x += edge == 1 ? 60 : 0;
            screen.visibleFrame.y += edge == 0 ? 70 : 0;
            screen.visibleFrame.width -= edge == 0 ? 0 : 60;
            screen.visibleFrame.height -= edge == 0 ? 70 : 0;
        }
        if (i > 0 && random.integer(0, 15) == 0)
            screen.number.reset();
        list.push_back(screen);
        x = i == 1 ? -frame.width : x + frame.width;
    }
    world.note(' ', count, " displays, the desktop's dock on #", host + 1);
    announceScreens(world, random);
}

/// The desktop's own dock moves to another display, and a display may be removed.
void moveDesktopsDock(World& world, Random& random) {
    auto& list = world.around.platform.screens.list;
    if (list.empty())
        return;
    if (list.size() > 1 && random.boolean())
        list.pop_back();
    for (PlatformScreen& screen : list)
        screen.visibleFrame = screen.frame;
    auto& host =
        list.at(static_cast<std::size_t>(random.integer(0, static_cast<int>(list.size()) - 1)));
    host.visibleFrame.y += 70;
    host.visibleFrame.height -= 70;
    world.note(" to #", host.number.value_or(0), " of ", list.size());
    announceScreens(world, random);
}

void burstOfScreens(World& world, Random& random) {
    announceScreens(world, random);
}

RunningApplication anyInstance(World& world, Random& random) {
    RunningApplication app = test::FakePlatform::instanceOf(anyApp(world, random));
    if (random.integer(0, 9) == 0)
        app.activationPolicy = ActivationPolicy::accessory;
    if (random.integer(0, 9) == 0)
        app.bundleID.reset();
    if (random.integer(0, 9) == 0)
        app.bundleURL.reset();
    if (random.integer(0, 5) == 0)
        app.localizedName.reset();
    return app;
}

void launchApp(World& world, Random& random) {
    const RunningApplication app = anyInstance(world, random);
    auto& running = world.around.platform.running;
    world.note(' ', app.bundleID.value_or("unknown"));
    if (running.apps.size() > 12)
        return;
    if (random.boolean()) {
        if (app.bundleID)
            world.model.willLaunch(*app.bundleID);
        running.announceWillLaunch(app);
    }
    running.apps.push_back(app);
    if (random.integer(0, 5) == 0)
        return;
    world.model.settled(app.bundleID);
    running.announceDidLaunch(app);
}

void beginLaunch(World& world, Random& random) {
    const RunningApplication app = anyInstance(world, random);
    world.note(' ', app.bundleID.value_or("unknown"));
    if (app.bundleID)
        world.model.willLaunch(*app.bundleID);
    world.around.platform.running.announceWillLaunch(app);
}

void settleLaunch(World& world, Random& random) {
    std::optional<RunningApplication> app;
    if (!world.model.launching.empty() && random.integer(0, 4) > 0) {
        app.emplace();
        app->bundleID = *world.model.launching.begin();
    }
    world.model.settled(app ? app->bundleID : std::nullopt);
    world.around.platform.running.announceDidLaunch(app);
}

void endApp(World& world, Random& random) {
    auto& running = world.around.platform.running;
    if (running.apps.empty())
        return;
    const auto index =
        static_cast<std::size_t>(random.integer(0, static_cast<int>(running.apps.size()) - 1));
    const RunningApplication app = running.apps[index];
    running.apps.erase(running.apps.begin() + static_cast<std::ptrdiff_t>(index));
    world.note(' ', app.bundleID.value_or("unknown"));
    world.closeWindowsOfEndedApps();
    if (random.integer(0, 5) == 0)
        return;
    world.model.settled(app.bundleID);
    running.announceDidTerminate(app);
}

void changeFrontmost(World& world, Random& random) {
    const std::string id = random.boolean() ? anyApp(world, random).bundleID : "";
    world.around.platform.running.bringToFront(id);
}

void changePins(World& world, Random& random) {
    auto& around = world.around;
    around.pins.clear();
    for (int i = random.integer(0, 7); i > 0; --i) {
        const int kind = std::max(0, random.integer(-8, 4));
        around.pins.push_back(
            {static_cast<Pin::Kind>(kind), static_cast<std::size_t>(random.integer(0, 8))});
    }
    around.pinsAreDamaged = random.integer(0, 11) == 0;
    around.pinsAreAbsent = random.integer(0, 11) == 0;
    around.writePins();
    world.note(' ', around.pins.size(), " pins");
    const int signal = random.integer(0, 3);
    if (signal == 0 || signal == 3) {
        world.model.desktopsDockAnnounced();
        around.platform.dockPreferences.announceChange();
    }
    if (signal == 1 || signal == 3) {
        world.model.desktopsDockFileChanged(false);
        around.platform.fileEvents.fire(around.desktopsDock, {.changed = true});
    }
}

void announcePins(World& world, Random& /*random*/) {
    world.model.desktopsDockAnnounced();
    world.around.platform.dockPreferences.announceChange();
}

void replacePinsFile(World& world, Random& random) {
    auto& around = world.around;
    const bool isReplaced = random.boolean();
    world.note(isReplaced ? " replaced" : " removed");
    if (!isReplaced)
        around.platform.fileSystem.remove(around.desktopsDock);
    world.model.desktopsDockFileChanged(true);
    around.platform.fileEvents.fire(around.desktopsDock, {.changed = true, .removed = true});
}

void restorePinsFile(World& world, Random& /*random*/) {
    world.around.platform.fileSystem.put(world.around.desktopsDock);
}

void deleteApp(World& world, Random& random) {
    const AppRef& app = anyApp(world, random);
    world.note(' ', app.name);
    world.around.platform.fileSystem.remove(app.url);
    if (random.boolean())
        std::erase(world.around.platform.catalog.installed, app);
}

void installApp(World& world, Random& random) {
    const AppRef& app = anyApp(world, random);
    world.note(' ', app.name);
    world.around.platform.fileSystem.putFolder(app.url);
    if (!world.around.isInCatalog(app))
        world.around.platform.catalog.installed.push_back(app);
}

void changeFolders(World& world, Random& random) {
    auto& folders = world.around.platform.userFolders;
    folders.downloadsFolder.reset();
    folders.trashFolder.reset();
    if (random.integer(0, 2) > 0)
        folders.downloadsFolder = folders.homeFolder.appending("Downloads");
    if (random.integer(0, 2) > 0)
        folders.trashFolder = folders.homeFolder.appending(".Trash");
}

void changeIcons(World& world, Random& random) {
    auto& icons = world.around.platform.icons;
    icons.knownImages.clear();
    if (random.boolean())
        icons.knownImages.insert("NSTrashEmpty");
}

/// The user chooses another icon theme.
void announceIcons(World& world, Random& random) {
    changeIcons(world, random);
    world.model.iconsChanged();
    world.around.platform.icons.announceChange();
}

void breakFiles(World& world, Random& random) {
    auto& files = world.around.platform.fileSystem;
    files.folderFailure.reset();
    files.writeFailure.reset();
    files.readFailure.reset();
    const PlatformError full{28, "no space left"};
    switch (random.integer(0, 5)) {
    case 0:
        files.folderFailure = full;
        break;
    case 1:
        files.writeFailure = full;
        break;
    case 2:
        files.readFailure = full;
        break;
    default:
        break;
    }
}

void changeTrust(World& world, Random& random) {
    auto& platform = world.around.platform;
    platform.accessibility.trusted = random.boolean();
    platform.pointerTaps.failure.reset();
    if (random.integer(0, 4) == 0)
        platform.pointerTaps.failure = PlatformError{1, "no tap"};
    world.note(platform.accessibility.trusted ? " granted" : " withdrawn");
}

void disableTap(World& world, Random& random) {
    using Kind = PointerTapEvent;
    auto& taps = world.around.platform.pointerTaps;
    if (!taps.isTapped())
        return;
    world.model.tapDisabled();
    taps.disable(random.boolean() ? Kind::tapDisabledByTimeout : Kind::tapDisabledByUserInput);
}

void changeMotion(World& world, Random& random) {
    world.around.platform.motionSettings.reduces = random.integer(0, 2) == 0;
    world.model.motionChanged();
    world.around.platform.pointerSettings.interval = random.boolean() ? 0.5 : 0.3;
}

}

std::vector<Event> surroundingEvents() {
    return {{"displays change", 12, changeScreens, true},
            {"the desktop's dock moves", 16, moveDesktopsDock, true},
            {"displays are announced", 6, burstOfScreens, true},
            {"an app starts", 16, launchApp, true},
            {"an app is about to start", 8, beginLaunch, true},
            {"a start is over", 8, settleLaunch, true},
            {"an app ends", 12, endApp, true},
            {"another app is frontmost", 8, changeFrontmost, true},
            {"pins change", 14, changePins, true},
            {"pins are announced", 4, announcePins, true},
            {"the pins' file goes", 4, replacePinsFile, true},
            {"the pins' file comes", 4, restorePinsFile},
            {"an app is deleted", 4, deleteApp},
            {"an app is installed", 8, installApp},
            {"folders change", 3, changeFolders},
            {"icons change", 2, changeIcons},
            {"another icon theme", 4, announceIcons, true},
            {"files fail or work", 6, breakFiles},
            {"the permission changes", 6, changeTrust},
            {"the tap is disabled", 3, disableTap},
            {"motion settings change", 3, changeMotion}};
}

}
