// The checks once everything is idle.
#include "Bridge/Conversions.hpp"
#include "ProgramTest.hpp"
#include "Settings/SettingsCoding.hpp"
#include "Storm/PaperWorld.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>

namespace vireline::storm {
namespace {

/// Points; tolerance for accumulated rounding errors.
constexpr double rounding = 1e-6;

bool areNear(const Rect& one, const Rect& other, double tolerance) {
    return std::abs(one.minX() - other.minX()) <= tolerance &&
           std::abs(one.minY() - other.minY()) <= tolerance &&
           std::abs(one.maxX() - other.maxX()) <= tolerance &&
           std::abs(one.maxY() - other.maxY()) <= tolerance;
}

std::vector<ScreenSnapshot> snapshots(const std::vector<paper::Display>& displays) {
    std::vector<ScreenSnapshot> all;
    for (const paper::Display& display : displays)
        all.push_back({.id = display.number,
                       .unitNumber = display.unit,
                       .frame = macos::toRect(display.frame),
                       .visibleFrame = macos::toRect(display.visible),
                       .backingScaleFactor = display.scale});
    return all;
}

Settings storedSettings(const std::string& path) {
    std::ifstream in{path};
    const std::string text{std::istreambuf_iterator<char>{in}, {}};
    return SettingsCoding::decode(text).value_or(Settings{});
}

/// Converts a rectangle from a view as large as the hosted one to the display.
Rect onDisplay(const ToldWindow& told, const Rect& inView) {
    const double left = told.frame.x + told.hosted.x;
    const double top = told.frame.y + told.hosted.y + told.hosted.height;
    return {left + inView.x, top - inView.maxY(), inView.width, inView.height};
}

Rect drawn(const SceneNode& node) {
    const Point anchor = node.anchor.value_or(node.frame.center());
    return {anchor.x + (node.frame.x - anchor.x) * node.scale + node.offset().x,
            anchor.y + (node.frame.y - anchor.y) * node.scale + node.offset().y,
            node.frame.width * node.scale, node.frame.height * node.scale};
}

Rect onDisplay(NSView* view) {
    const NSRect bounds = view.bounds;
    return macos::toRect(NSAccessibilityFrameInView(view, bounds));
}

NSView* dockViewOf(NSWindow* window) {
    return window.contentView.subviews.firstObject;
}

std::vector<NSWindow*> windowsOnScreen(const std::string& title) {
    std::vector<NSWindow*> found;
    for (NSWindow* window : paper::orderedWindows())
        if (window.title.paperText == title)
            found.push_back(window);
    return found;
}

}

std::vector<PanelSpec> PaperWorld::plannedDocks() {
    const Settings settings =
        storedSettings(pathIn("Library/Application Support/Vireline/preferences.json"));
    std::set<std::string> pinned;
    if (settings.sourceMode == SourceMode::manual) {
        for (const StoredApp& app : settings.manualApps)
            pinned.insert(app.bundleID);
    } else {
        for (const std::size_t pin : pins)
            pinned.insert(apps.at(pin).bundleID);
    }
    const auto others = std::ranges::count_if(
        running, [&](std::size_t index) { return !pinned.contains(apps.at(index).bundleID); });
    PanelPlanner::Request request;
    request.counts.pinned = static_cast<int>(pinned.size());
    request.counts.unpinnedRunning = static_cast<int>(others);
    request.maxIconSize = settings.iconSize;
    request.position = settings.position;
    request.magnification = effectiveMagnification(settings);
    return PanelPlanner::desiredPanels(snapshots(displays), request);
}

void PaperWorld::lookAtRest() {
    const Settings settings =
        storedSettings(pathIn("Library/Application Support/Vireline/preferences.json"));
    const auto planned = plannedDocks();
    for (const PanelSpec& spec : planned)
        lookAtDock(spec, settings.autoHide);
    const auto docks = std::ranges::count_if(paper::orderedWindows(), [](NSWindow* window) {
        return window.title.paperText.starts_with("Vireline dock #");
    });
    if (docks != static_cast<std::ptrdiff_t>(planned.size()))
        fail(docks, " docks on screen instead of ", planned.size());
    lookAtGuard();
    lookAtSettings();
}

void PaperWorld::lookAtDock(const PanelSpec& spec, bool isCollapsed) {
    const auto found = windowsOnScreen("Vireline dock #" + std::to_string(spec.displayID));
    if (found.size() != 1)
        return fail(found.size(), " docks on display ", spec.displayID);
    const auto told = std::ranges::find(panels->windows(), spec.displayID, &ToldWindow::display);
    if (told == panels->windows().end() || !(*told)->isShown)
        return fail("a dock on display ", spec.displayID, " that nothing asked for");
    const Rect frame = isCollapsed ? spec.collapsedFrame() : spec.frame;
    if (!areNear((*told)->frame, frame, rounding))
        return fail("dock #", spec.displayID, " was told ", (*told)->frame, ", planned ", frame,
                    " for ", testing::PrintToString(tileNames(found.front())));
    const Rect expected = (*told)->overhang.around(frame);
    if (!areNear(macos::toRect(found.front().frame), expected, rounding))
        return fail("dock #", spec.displayID, " lies at ", macos::toRect(found.front().frame),
                    ", planned ", expected);
    lookAtNodes(**told, found.front());
    lookAtTiles(**told, found.front());
}

void PaperWorld::lookAtNodes(const ToldWindow& told, NSWindow* window) {
    NSArray<NSView*>* const views = dockViewOf(window).subviews;
    if (views.count != told.scene.nodes.size())
        return fail(views.count, " views for ", told.scene.nodes.size(), " nodes");
    const double scale = window.backingScaleFactor;
    for (std::size_t index = 0; index < told.scene.nodes.size(); ++index) {
        const SceneNode& node = told.scene.nodes.at(index);
        NSView* const view = views[index];
        const Rect at = onDisplay(view);
        const Rect expected = onDisplay(told, drawn(node));
        const bool isLabel = std::holds_alternative<LabelNode>(node.content);
        if (!isLabel && !areNear(at, expected, 1 / scale + rounding))
            fail("node ", static_cast<int>(node.id.part), '/', node.id.owner, " lies at ", at,
                 " instead of ", expected);
        if (std::abs(view.alphaValue - node.opacity) > rounding)
            fail("a node of opacity ", node.opacity, " has ", view.alphaValue);
        if (std::holds_alternative<ImageNode>(node.content) && view.layer.contentsScale < scale)
            fail("an icon of scale ", view.layer.contentsScale, " on a display of ", scale);
    }
}

void PaperWorld::lookAtTiles(const ToldWindow& told, NSWindow* window) {
    const NSArray* const tiles = [dockViewOf(window) accessibilityChildren];
    std::vector<Point> icons;
    for (const SceneNode& node : told.scene.nodes)
        if (node.id.part == NodeID::Part::icon)
            icons.push_back(onDisplay(told, drawn(node)).center());
    if (tiles.count != icons.size())
        return fail(tiles.count, " tiles for ", icons.size(), " icons");
    for (id tile in tiles) {
        const Rect frame = macos::toRect([tile accessibilityFrame]);
        const bool isThere =
            std::ranges::count_if(icons, [&](Point icon) { return frame.contains(icon); }) == 1;
        if (!isThere)
            fail("no icon where the tile ", [[tile accessibilityLabel] paperText],
                 " is said to be");
    }
}

void PaperWorld::lookAtGuard() {
    const Settings settings =
        storedSettings(pathIn("Library/Application Support/Vireline/preferences.json"));
    const bool mayGuard = settings.anchorAppleDock && paper::isTrusted();
    if (!mayGuard && paper::enabledTaps() > 0)
        fail("a tap without permission or wish");
    if (mayGuard && tapsAreAllowed && paper::enabledTaps() != 1)
        fail(paper::enabledTaps(), " taps guard the pointer");
}

void PaperWorld::lookAtSettings() {
    NSWindow* const window = paper::windowTitled("Vireline Settings");
    if (!window.visible)
        return;
    const Settings settings =
        storedSettings(pathIn("Library/Application Support/Vireline/preferences.json"));
    const std::map<std::string, bool> switches{
        {"Magnification", settings.magnificationEnabled},
        {"Automatically hide and show the dock", settings.autoHide},
        {"Keep Apple's Dock on its own display", settings.anchorAppleDock},
        {"Open apps on the dock's display", settings.openOnThisDisplay},
        {"Move windows to the dock you click", settings.summonOnClick},
        {"Fill the display on double-click", settings.fillOnDoubleClick},
        {"Mirror Apple's Dock", settings.sourceMode == SourceMode::mirror},
        {"Manual list", settings.sourceMode == SourceMode::manual}};
    for (const auto& [title, isOn] : switches) {
        NSButton* const control = controlNamed(window, title);
        if (control == nil)
            fail("no control ", title);
        else if ((control.state == NSControlStateValueOn) != isOn)
            fail(title, isOn ? " is not shown as on" : " is shown as on");
    }
    NSSegmentedControl* const position = controlNamed(window, "Position on screen");
    if (position.selectedSegment != static_cast<NSInteger>(settings.position))
        fail("the position is shown as ", position.selectedSegment);
    NSSlider* const size = controlNamed(window, "Icon size");
    if (std::abs(size.doubleValue - settings.iconSize) > rounding)
        fail("the icon size is shown as ", size.doubleValue, " instead of ", settings.iconSize);
}

}
