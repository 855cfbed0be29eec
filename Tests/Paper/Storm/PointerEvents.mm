// A user's actions with the pointer, and assistive technology's actions on tiles.
#include "ProgramTest.hpp"
#include "Storm/PaperWorld.hpp"

#include <array>

namespace vireline::storm {
namespace {

using test::Random;

id anyTile(PaperWorld& world, Random& random) {
    NSWindow* const dock = world.anyDock(random);
    const NSArray* const tiles = [dock.contentView.subviews.firstObject accessibilityChildren];
    if (tiles.count == 0)
        return nil;
    return tiles[static_cast<NSUInteger>(random.integer(0, static_cast<int>(tiles.count) - 1))];
}

/// On a tile, at an edge of a dock's display, or anywhere.
NSPoint anyPlace(PaperWorld& world, Random& random) {
    const int kind = random.integer(0, 5);
    if (kind < 3) {
        if (const id tile = anyTile(world, random); tile != nil) {
            const NSPoint centre = centreOf(tile);
            return {centre.x + random.real(-20, 20), centre.y + random.real(-20, 20)};
        }
    }
    if (kind < 5) {
        if (NSWindow* const dock = world.anyDock(random); dock != nil) {
            const NSRect frame = dock.frame;
            return {frame.origin.x + random.real(-5, frame.size.width + 5),
                    frame.origin.y + random.real(-5, frame.size.height + 5)};
        }
    }
    return {random.real(-3000, 5000), random.real(-2000, 3000)};
}

void move(PaperWorld& world, Random& random) {
    paper::movePointer(anyPlace(world, random));
}

void walk(PaperWorld& world, Random& random) {
    const NSPoint from = anyPlace(world, random);
    const NSPoint to = anyPlace(world, random);
    for (int step = 0; step <= 8; ++step) {
        paper::movePointer(
            {from.x + (to.x - from.x) * step / 8, from.y + (to.y - from.y) * step / 8});
        paper::advance(0.02);
    }
}

void press(PaperWorld& /*world*/, Random& random) {
    if ((paper::pressedButtons() & 1) == 0)
        paper::press(random.integer(0, 4) == 0);
}

void release(PaperWorld& /*world*/, Random& random) {
    if (random.integer(0, 5) == 0)
        paper::loseRelease();
    else
        paper::release();
}

void click(PaperWorld& world, Random& random) {
    const id tile = anyTile(world, random);
    if (tile == nil)
        return;
    const NSPoint at = centreOf(tile);
    for (int count = random.integer(1, 2); count > 0; --count)
        paper::click(at, random.integer(0, 4) == 0);
}

void menu(PaperWorld& world, Random& random) {
    paper::movePointer(anyPlace(world, random));
    paper::rightPress();
    if (random.boolean())
        paper::advance(0.1);
}

void dragTile(PaperWorld& world, Random& random) {
    const id tile = anyTile(world, random);
    if (tile == nil)
        return;
    paper::movePointer(centreOf(tile));
    paper::press();
    for (int step = random.integer(1, 6); step > 0; --step) {
        paper::movePointer(anyPlace(world, random));
        paper::advance(0.05);
    }
    if (random.integer(0, 3) == 0) {
        paper::setEscapeDown(true);
        paper::advance(0.1);
        paper::setEscapeDown(false);
    }
    if (random.integer(0, 2) > 0)
        paper::release();
}

void dragFiles(PaperWorld& world, Random& random) {
    paper::cancelFileDrag();
    const auto app = static_cast<std::size_t>(random.integer(0, 6));
    const std::array<std::string, 4> files{world.pathIn("letter.txt"), world.apps[app].path,
                                           world.pathIn("missing.txt"),
                                           world.pathIn("Applications")};
    std::vector<std::string> paths;
    for (int count = random.integer(1, 3); count > 0; --count)
        paths.push_back(files.at(static_cast<std::size_t>(random.integer(0, 3))));
    constexpr std::array<NSDragOperation, 4> masks{
        NSDragOperationGeneric, NSDragOperationCopy, NSDragOperationNone,
        NSDragOperationCopy | NSDragOperationLink | NSDragOperationGeneric};
    paper::beginFileDrag(paths, masks.at(static_cast<std::size_t>(random.integer(0, 3))));
    for (int step = random.integer(0, 4); step > 0; --step) {
        paper::movePointer(anyPlace(world, random));
        paper::advance(0.05);
    }
    if (random.integer(0, 3) > 0)
        static_cast<void>(paper::dropFiles());
    else if (random.boolean())
        paper::cancelFileDrag();
}

void useTileByAccessibility(PaperWorld& world, Random& random) {
    const id tile = anyTile(world, random);
    if (tile == nil)
        return;
    if (random.boolean())
        [tile accessibilityPerformPress];
    else
        [tile accessibilityPerformShowMenu];
    paper::advance(0.05);
    NSWindow* const dock = world.anyDock(random);
    static_cast<void>([dock.contentView accessibilityHitTest:anyPlace(world, random)]);
    // Also for a tile that no longer exists.
    static_cast<void>([tile accessibilityLabel]);
    static_cast<void>([tile accessibilityFrame]);
}

void letTimePass(PaperWorld& /*world*/, Random& random) {
    paper::advance(random.integer(0, 3) == 0 ? random.real(1, 6) : random.real(0, 0.4));
}

void stall(PaperWorld& /*world*/, Random& random) {
    paper::stall(random.real(0, 2));
}

void rest(PaperWorld& world, Random& /*random*/) {
    world.settle();
}

}

std::vector<PaperEvent> pointerEvents() {
    return {{"the pointer jumps", 10, move},
            {"the pointer walks", 6, walk},
            {"a press", 6, press},
            {"a release", 8, release},
            {"a click", 12, click},
            {"a menu", 6, menu},
            {"a tile is dragged", 5, dragTile},
            {"files are dragged", 6, dragFiles},
            {"assistive technology", 4, useTileByAccessibility},
            {"time passes", 12, letTimePass},
            {"the main thread stalls", 2, stall},
            {"everything rests", 3, rest}};
}

}
