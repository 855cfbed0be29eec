/// Other programs' windows, and what their apps offer in menus.
#include "Storm/World.hpp"

#include <algorithm>
#include <array>

namespace vireline::storm {
namespace {

using test::Random;

std::string anyTitle(World& world, Random& random) {
    const std::string number = std::to_string(world.model.windows.size());
    switch (random.integer(0, 5)) {
    case 0:
        return random.boolean() ? "" : " \n ";
    case 1:
        return " Two\nlines " + number + ' ';
    case 2:
        return number + std::string(static_cast<std::size_t>(random.integer(44, 60)), 'x') + "end";
    default:
        return "Window " + number;
    }
}

void openWindows(World& world, Random& random) {
    constexpr std::size_t most = 60;
    auto& platform = world.around.platform;
    const auto& apps = platform.running.apps;
    if (apps.empty() || world.model.windows.size() > most)
        return;
    const RunningApplication app =
        apps[static_cast<std::size_t>(random.integer(0, static_cast<int>(apps.size()) - 1))];
    const int count = random.integer(0, 3) == 0 ? random.integer(2, 12) : 1;
    world.note(' ', app.bundleID.value_or("unknown"), ' ', count);
    for (int i = 0; i < count; ++i) {
        auto& window = platform.accessibility.addWindow(
            app, {random.real(-500, 2500), random.real(0, 900), 400, 300});
        window.title = anyTitle(world, random);
        world.model.windowOpened(app, window.title, window);
    }
}

void changeWindow(World& world, Random& random) {
    auto& windows = world.model.windows;
    if (windows.empty())
        return;
    ModelWindow& window =
        windows[static_cast<std::size_t>(random.integer(0, static_cast<int>(windows.size()) - 1))];
    world.note(' ', window.number, " of ", window.bundleID);
    switch (random.integer(0, 4)) {
    case 0:
        return world.closeWindow(window);
    case 1:
        window.title = anyTitle(world, random);
        window.actual->title = window.title;
        return;
    case 2:
        world.model.windowActivated(window);
        return world.around.platform.accessibility.activate(*window.actual);
    default:
        window.isHidden = !window.isHidden;
        window.actual->isHidden = window.isHidden;
        return;
    }
}

void changeOffers(World& world, Random& random) {
    const AppRef& app = world.around.apps.at(static_cast<std::size_t>(random.integer(0, 8)));
    auto& offered = world.around.platform.catalog.offered[app.url.path()];
    offered.clear();
    if (random.boolean())
        offered.push_back({"new-window", "New Window", "window-new"});
    if (random.boolean())
        offered.push_back({"private", "New Private Window", ""});
    world.note(' ', app.name, ' ', offered.size());
}

}

std::vector<Event> windowEvents() {
    return {{"an app opens windows", 10, openWindows},
            {"a window changes", 12, changeWindow},
            {"an app's entry changes", 4, changeOffers}};
}

void World::closeWindow(const ModelWindow& window) {
    around.platform.accessibility.close(*window.actual);
    model.windowClosed(window.number);
}

void World::closeWindowsOfEndedApps() {
    const auto windows = model.windows;
    for (const ModelWindow& window : windows) {
        const bool hasEnded =
            std::ranges::none_of(around.platform.running.apps, [&](const RunningApplication& app) {
                return app.bundleID.value_or("") == window.bundleID;
            });
        if (hasEnded)
            closeWindow(window);
    }
}

}
