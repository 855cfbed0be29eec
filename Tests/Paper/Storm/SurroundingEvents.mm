// Events around the program: displays, applications, sleep, permissions, preferences.
#include "Storm/PaperWorld.hpp"

#include <algorithm>
#include <array>

namespace vireline::storm {
namespace {

using test::Random;

/// One of five displays on a grid, some above others, with or without the system's dock.
paper::Display makeDisplay(unsigned number, bool hasDock, Random& random) {
    constexpr std::array<NSRect, 5> places{
        NSRect{{0, 0}, {1440, 900}}, NSRect{{1440, 0}, {1920, 1080}},
        NSRect{{-1280, 100}, {1280, 800}}, NSRect{{0, 900}, {2560, 1440}},
        NSRect{{200, -1024}, {1280, 1024}}};
    paper::Display display;
    display.number = number;
    display.frame = places.at(number - 1);
    display.visible = display.frame;
    display.visible.size.height -= 25;
    display.scale = random.boolean() ? 2 : 1;
    if (!hasDock)
        return display;
    constexpr double depth = 70;
    switch (random.integer(0, 2)) {
    case 0:
        display.visible.origin.y += depth;
        display.visible.size.height -= depth;
        break;
    case 1:
        display.visible.origin.x += depth;
        [[fallthrough]];
    default:
        display.visible.size.width -= depth;
    }
    return display;
}

void plugDisplays(PaperWorld& world, Random& random) {
    world.displays.clear();
    std::array<unsigned, 5> numbers{1, 2, 3, 4, 5};
    for (std::size_t index = 4; index > 0; --index)
        std::swap(numbers.at(index),
                  numbers.at(static_cast<std::size_t>(random.integer(0, static_cast<int>(index)))));
    const int count = random.integer(0, 9) == 0 ? 0 : random.integer(1, 5);
    const int host = random.integer(-1, count);
    for (int index = 0; index < count; ++index)
        world.displays.push_back(
            makeDisplay(numbers.at(static_cast<std::size_t>(index)), index == host, random));
    world.plug();
}

void unplugOne(PaperWorld& world, Random& random) {
    if (world.displays.size() < 2)
        return;
    const int last = static_cast<int>(world.displays.size()) - 1;
    world.displays.erase(world.displays.begin() + random.integer(0, last));
    world.plug();
}

void moveDock(PaperWorld& world, Random& random) {
    const int host = random.integer(0, static_cast<int>(world.displays.size()));
    for (int index = 0; paper::Display & display : world.displays) {
        display.visible = display.frame;
        display.visible.size.height -= 25;
        if (index++ == host) {
            display.visible.origin.y += 70;
            display.visible.size.height -= 70;
        }
    }
    world.plug();
}

void announceMain(PaperWorld& world, Random& /*random*/) {
    if (!world.displays.empty())
        paper::announceMainDisplay(world.displays.front().number);
}

void launch(PaperWorld& world, Random& random) {
    const auto index = static_cast<std::size_t>(random.integer(0, 6));
    if (!world.running.insert(index).second)
        return;
    const paper::App& app = world.apps.at(index);
    world.note(' ', app.name);
    NSRunningApplication* const running = paper::launch(app);
    running.active = random.boolean();
    auto& foreign = paper::foreignApps()[app.processIdentifier];
    for (int count = random.integer(0, 2); count > 0; --count)
        foreign.windows.push_back(
            {.position = {random.real(-500, 3000), random.real(0, 900)}, .size = {400, 300}});
}

void end(PaperWorld& world, Random& random) {
    if (!world.running.empty())
        world.quitApp(*world.running.begin(), random.integer(0, 3) == 0);
}

void hang(PaperWorld& /*world*/, Random& random) {
    for (auto& [process, app] : paper::foreignApps()) {
        app.isHung = random.integer(0, 3) == 0;
        for (paper::ForeignWindow& window : app.windows)
            window.error = random.integer(0, 4) == 0 ? kAXErrorFailure : kAXErrorSuccess;
    }
}

void pin(PaperWorld& world, Random& random) {
    if (world.pins.size() > 1 && random.boolean()) {
        world.pins.pop_back();
    } else {
        const auto index = static_cast<std::size_t>(random.integer(0, 6));
        if (std::ranges::find(world.pins, index) == world.pins.end())
            world.pins.push_back(index);
    }
    const bool announces = random.boolean();
    world.writePins(announces, !announces);
}

void sleepOrWake(PaperWorld& /*world*/, Random& random) {
    const std::array<NSNotificationName, 5> names{
        NSWorkspaceScreensDidSleepNotification, NSWorkspaceScreensDidWakeNotification,
        NSWorkspaceDidWakeNotification, NSWorkspaceSessionDidResignActiveNotification,
        NSWorkspaceSessionDidBecomeActiveNotification};
    NSNotificationCenter* const center = NSWorkspace.sharedWorkspace.notificationCenter;
    [center paperPost:names.at(static_cast<std::size_t>(random.integer(0, 4))) userInfo:nil];
    paper::drain();
}

void changeTrust(PaperWorld& world, Random& random) {
    paper::setTrusted(random.integer(0, 2) > 0);
    world.tapsAreAllowed = random.integer(0, 4) > 0;
    paper::allowTaps(world.tapsAreAllowed);
    if (random.boolean())
        paper::disableTaps(random.boolean() ? kCGEventTapDisabledByTimeout
                                            : kCGEventTapDisabledByUserInput);
}

void changeMotion(PaperWorld& /*world*/, Random& random) {
    paper::setReducesMotion(random.boolean());
}

void slowTrash(PaperWorld& /*world*/, Random& random) {
    paper::holdBackground(random.integer(0, 3) == 0);
}

}

std::vector<PaperEvent> surroundingEvents() {
    return {{"displays", 5, plugDisplays},
            {"a display less", 2, unplugOne},
            {"the system's dock moves", 4, moveDock},
            {"another main display", 1, announceMain},
            {"an app starts", 6, launch},
            {"an app ends", 5, end},
            {"apps hang", 2, hang},
            {"pins", 4, pin},
            {"sleep or wake", 3, sleepOrWake},
            {"the permission", 3, changeTrust},
            {"reduced motion", 1, changeMotion},
            {"a slow trash", 1, slowTrash}};
}

}
