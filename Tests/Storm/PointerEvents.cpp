/// A user's actions on docks.
#include "Storm/World.hpp"

#include <algorithm>

namespace vireline::storm {
namespace {

using test::Random;

/// Anywhere on the view, and slightly beyond.
Point anyPoint(const StormWindow& window, Random& random) {
    return {random.real(-8, window.hosted.width + 8), random.real(-8, window.hosted.height + 8)};
}

/// On one of the first tiles half of the time, since that is where most things happen.
Point anyPlace(StormWindow& window, Random& random) {
    const auto tiles = window.tiles();
    const int choice = random.integer(0, 19);
    if (choice >= 15 || tiles.empty())
        return anyPoint(window, random);
    const auto most = static_cast<int>(tiles.size()) - 1;
    const auto index = choice < 10 ? random.integer(0, std::min(most, 4)) : random.integer(0, most);
    return tiles.at(static_cast<std::size_t>(index)).frame.center();
}

/// Performs a gesture on a random dock, until its window is destroyed.
template <class... Parts>
void gesture(World& world, StormWindow* window, Parts... parts) {
    const auto part = [&](auto& act) {
        if (world.wasInterrupted())
            world.cancelPresses();
        if (world.isAlive(window) && window->isShown)
            act();
    };
    (part(parts), ...);
}

void enterDock(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point at = anyPlace(*window, random);
        world.note(' ', window->id.display, ' ', at);
        window->enter(at);
    }
}

void leaveDock(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        world.note(' ', window->id.display);
        const bool isHeld = random.integer(0, 3) == 0;
        window->leave(isHeld, random.integer(0, 5) == 0);
    }
}

void moveOverDock(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point at = anyPlace(*window, random);
        world.note(' ', window->id.display, ' ', at);
        window->move(at);
    }
}

void pressTile(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point at = anyPlace(*window, random);
        world.note(' ', window->id.display, ' ', at);
        window->press(at);
    }
}

void releaseButton(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point at = anyPlace(*window, random);
        world.note(' ', window->id.display, ' ', at);
        gesture(
            world, window, [&] { window->move(at); },
            [&] { window->release(at, random.boolean()); });
    }
}

void loseRelease(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        world.note(' ', window->id.display);
        window->cancel();
    }
}

void clickTile(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point at = anyPlace(*window, random);
        const int times = random.integer(1, 3);
        world.note(' ', window->id.display, ' ', at, ' ', times, " times");
        for (int i = 0; i < times; ++i) {
            gesture(world, window, [&] { window->press(at); }, [&] { window->release(at, true); });
        }
    }
}

void dragTile(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point from = anyPlace(*window, random);
        const Point to = anyPlace(*window, random);
        const bool isDropped = random.integer(0, 2) > 0;
        world.note(' ', window->id.display, ' ', from, " to ", to);
        gesture(
            world, window, [&] { window->enter(from); }, [&] { window->press(from); },
            [&] { window->move({from.x + 5, from.y + 5}); }, [&] { window->move(to); },
            [&] {
                if (isDropped)
                    window->release(to, true);
            });
    }
}

void secondaryClick(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point at = anyPlace(*window, random);
        world.note(' ', window->id.display, ' ', at);
        gesture(world, window, [&] { window->enter(at); }, [&] { window->pressSecondary(at); });
    }
}

void middleClick(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        const Point at = anyPlace(*window, random);
        world.note(' ', window->id.display, ' ', at);
        gesture(world, window, [&] { window->enter(at); }, [&] { window->pressMiddle(at); });
    }
}

void useMenu(World& world, Random& random) {
    StormWindow* const window = world.anyWindow(random);
    if (window == nullptr || !window->hasMenu)
        return;
    const auto lines = linesOf(window->menu);
    const int choice = random.integer(-1, static_cast<int>(lines.size()) - 1);
    world.note(' ', window->id.display, " line ", choice);
    const bool isCommand = choice >= 0 && lines[static_cast<std::size_t>(choice)].isCommand;
    window->closeMenu(isCommand ? std::optional{static_cast<std::size_t>(choice)} : std::nullopt);
}

void dismissMenu(World& world, Random& random) {
    StormWindow* const window = world.anyWindow(random);
    if (window != nullptr && window->hasMenu)
        window->closeMenu(std::nullopt);
}

/// Up to three apps, files, folders and web addresses.
std::vector<std::string> anyURLs(World& world, Random& random, std::vector<FileURL>& files) {
    std::vector<std::string> urls;
    const auto drag = [&](const FileURL& file) {
        files.push_back(file);
        urls.push_back(file.absoluteString());
    };
    for (int i = random.integer(0, 3); i > 0; --i) {
        switch (random.integer(0, 7)) {
        case 0:
            urls.emplace_back("https://example.org/page");
            break;
        case 1:
            drag(world.around.letter);
            break;
        case 2:
            drag(world.around.locked);
            break;
        case 3:
            drag(FileURL::fromPath("/Applications/Ghost.app"));
            break;
        default:
            drag(world.around.apps.at(static_cast<std::size_t>(random.integer(0, 8))).url);
            break;
        }
    }
    return urls;
}

void dragFilesIn(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        window->dragged.clear();
        const auto urls = anyURLs(world, random, window->dragged);
        world.note(' ', window->id.display, ' ', urls.size(), " URLs, ", window->dragged.size(),
                   " files");
        world.model.filesEntered(window->id, !window->dragged.empty());
        window->listener().dragEntered(urls);
    }
}

void dragFilesOn(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random))
        static_cast<void>(window->dragFiles(anyPlace(*window, random)));
}

void dragFilesOut(World& world, Random& random) {
    if (StormWindow* const window = world.anyWindow(random)) {
        world.note(' ', window->id.display);
        window->dragged.clear();
        world.model.filesLeft(window->id);
        window->listener().dragExited();
    }
}

void drop(World& world, Random& random) {
    StormWindow* const window = world.anyWindow(random);
    if (window == nullptr)
        return;
    const Point at = anyPlace(*window, random);
    const auto tiles = window->tiles();
    const auto tile = std::ranges::find_if(
        tiles, [&](const AccessibleTile& each) { return each.frame.contains(at); });
    const bool isTaken = window->dragFiles(at);
    const bool isForTrash = tile != tiles.end() && tile->label == "Trash" && !tile->hasMenu;
    const auto files = std::exchange(window->dragged, {});
    world.note(' ', window->id.display, ' ', at, ' ', files.size(), " files",
               isForTrash ? " on the Trash" : "");
    if (isTaken && files.empty() && !world.wasInterrupted())
        world.fail("a dock takes a drop of nothing");
    world.model.dropped(window->id, files, isTaken, isForTrash);
    static_cast<void>(window->listener().dropped(at));
}

void dragFilesAndDrop(World& world, Random& random) {
    dragFilesIn(world, random);
    drop(world, random);
}

void pressByKey(World& world, Random& random) {
    StormWindow* const window = world.anyWindow(random);
    if (window == nullptr)
        return;
    const auto tiles = window->tiles();
    if (tiles.empty() || random.integer(0, 3) == 0)
        return window->pressByKey(100'000);
    const auto index =
        static_cast<std::size_t>(random.integer(0, static_cast<int>(tiles.size()) - 1));
    world.note(' ', window->id.display, " tile ", index);
    world.model.tapped(window->id, index);
    window->pressByKey(tiles[index].id);
}

void openMenuByKey(World& world, Random& random) {
    StormWindow* const window = world.anyWindow(random);
    if (window == nullptr)
        return;
    const auto tiles = window->tiles();
    if (tiles.empty())
        return window->openMenuByKey(100'000);
    const auto index =
        static_cast<std::size_t>(random.integer(0, static_cast<int>(tiles.size()) - 1));
    world.note(' ', window->id.display, " tile ", index);
    world.expectMenuOf(index);
    window->openMenuByKey(tiles[index].id);
}

}

std::vector<Event> pointerEvents() {
    return {{"the pointer comes", 30, enterDock, true},
            {"the pointer goes", 30, leaveDock, true},
            {"the pointer moves", 30, moveOverDock, true},
            {"a press", 12, pressTile},
            {"a release", 12, releaseButton},
            {"a lost release", 6, loseRelease, true},
            {"clicks", 16, clickTile},
            {"a tile is dragged", 30, dragTile},
            {"a secondary click", 12, secondaryClick},
            {"a middle click", 4, middleClick},
            {"a menu is used", 20, useMenu},
            {"a menu is dismissed", 6, dismissMenu, true},
            {"files come", 12, dragFilesIn},
            {"files move", 8, dragFilesOn},
            {"files go", 8, dragFilesOut, true},
            {"files are dropped", 8, drop},
            {"files come and are dropped", 12, dragFilesAndDrop},
            {"a tile is pressed by assistive technology", 6, pressByKey},
            {"a menu is opened by assistive technology", 4, openMenuByKey}};
}

}
