#include "Storm/StormWindow.hpp"

#include <utility>

namespace vireline::storm {

using Kind = PointerEvent::Kind;

std::vector<MenuLine> linesOf(const Menu& menu) {
    std::vector<MenuLine> lines;
    const auto add = [&](const MenuCommand& command, const std::string& before) {
        const bool isChecked = command.isChecked.value_or(false);
        lines.push_back({before + command.title + (isChecked ? " *" : ""), true, command.action});
    };
    for (const MenuItem& entry : menu.entries) {
        if (const auto* const command = std::get_if<MenuCommand>(&entry)) {
            add(*command, "");
        } else if (const auto* const submenu = std::get_if<MenuSubmenu>(&entry)) {
            lines.push_back({submenu->title, false, nullptr});
            for (const MenuCommand& inner : submenu->entries)
                add(inner, "> ");
        } else {
            lines.push_back({"-", false, nullptr});
        }
    }
    return lines;
}

StormWindow::StormWindow(DockID dock, PanelWindowListener& listener, WindowWitness& witness,
                         bool isTracked)
    : id(dock), listener_(listener), witness_(witness), isTracked_(isTracked) {
    witness_.windowMade(*this);
}

StormWindow::~StormWindow() {
    witness_.windowGone(*this);
}

void StormWindow::setOverhang(const Overhang& beyond) {
    nextOverhang = beyond;
    witness_.called("setOverhang");
}

void StormWindow::setFrame(const Rect& moved, bool /*animate*/) {
    frame = moved;
    overhang = nextOverhang;
    witness_.called("setFrame");
}

void StormWindow::setHostedFrame(const Rect& moved) {
    hosted = moved;
    tracker_.setViewArea(overhang.around(moved.size()));
    witness_.called("setHostedFrame");
}

void StormWindow::present(const Scene& shown) {
    scene = shown;
    witness_.presented(*this, scene);
    witness_.called("present");
}

void StormWindow::requestFrame() {
    awaitsFrame = true;
    witness_.called("requestFrame");
}

void StormWindow::watchForCancel(bool watches) {
    watchesForCancel = watches;
    witness_.called("watchForCancel");
}

void StormWindow::orderFrontRegardless() {
    isShown = true;
    witness_.called("orderFrontRegardless");
}

void StormWindow::orderOut() {
    isShown = false;
    hasMenu = false;
    onMenuClosed_ = nullptr;
    if (isTracked_)
        tracker_.hidden();
    witness_.called("orderOut");
}

void StormWindow::popUpMenu(const Menu& shown, const MenuPlace& /*place*/,
                            std::function<void()> onClose) {
    if (hasMenu)
        closeMenu(std::nullopt);
    menu = shown;
    hasMenu = true;
    onMenuClosed_ = std::move(onClose);
    if (isTracked_)
        tracker_.menuOpened();
    witness_.menuOpened(*this);
    witness_.called("popUpMenu");
}

void StormWindow::enter(Point at) {
    if (isTracked_)
        return tracker_.entered(at);
    mouseEntered();
}

void StormWindow::leave(bool isHeld, bool isStillOver) {
    if (isTracked_)
        return tracker_.left(
            {.isOverWindow = isStillOver, .isPrimaryHeld = isHeld, .position = {}});
    pointerEvent({Kind::exited, {}});
    mouseExited();
}

void StormWindow::move(Point at) {
    if (isTracked_)
        return tracker_.moved(at);
    pointerEvent({Kind::moved, at});
}

void StormWindow::press(Point at) {
    if (isTracked_)
        return tracker_.pressed(at);
    pointerEvent({Kind::pressed, at});
}

void StormWindow::release(Point at, bool isOver) {
    if (isTracked_)
        return tracker_.released(at, isOver);
    pointerEvent({Kind::released, at});
}

void StormWindow::pressSecondary(Point at) {
    if (isTracked_)
        return tracker_.secondaryPressed(at);
    pointerEvent({Kind::secondaryPressed, at});
}

void StormWindow::pressMiddle(Point at) {
    if (isTracked_)
        return tracker_.middlePressed(at);
    pointerEvent({Kind::middlePressed, at});
}

void StormWindow::cancel() {
    if (isTracked_)
        return tracker_.cancelled();
    pointerEvent({Kind::cancelled, {}});
}

void StormWindow::closeMenu(std::optional<std::size_t> chosen) {
    hasMenu = false;
    const auto tell = std::exchange(onMenuClosed_, nullptr);
    MenuAction act;
    if (chosen)
        act = linesOf(menu).at(*chosen).action;
    if (isTracked_)
        tracker_.menuClosed({});
    witness_.menuClosed(*this, chosen);
    tell();
    if (act)
        act();
}

void StormWindow::showFrame() {
    if (!std::exchange(awaitsFrame, false))
        return;
    witness_.laidOut(id);
    frameDue();
}

std::vector<AccessibleTile> StormWindow::tiles() {
    witness_.tilesRead(id);
    return listener_.accessibleTiles();
}

void StormWindow::pressByKey(std::uint32_t tile) {
    witness_.laidOut(id);
    listener_.pressTile(tile);
}

void StormWindow::openMenuByKey(std::uint32_t tile) {
    witness_.laidOut(id);
    listener_.showTileMenu(tile);
}

bool StormWindow::dragFiles(Point to) {
    witness_.laidOut(id);
    return listener_.dragMoved(to);
}

std::optional<std::size_t> StormWindow::tileAt(Point at) {
    const auto all = tiles();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].frame.contains(at))
            return i;
    }
    return std::nullopt;
}

void StormWindow::mouseEntered() {
    witness_.entered(id);
    listener_.mouseEntered();
}

void StormWindow::mouseExited() {
    witness_.exited(id);
    listener_.mouseExited();
}

void StormWindow::pointerEvent(const PointerEvent& event) {
    const bool isButton = event.kind == Kind::pressed || event.kind == Kind::released ||
                          event.kind == Kind::secondaryPressed || event.kind == Kind::middlePressed;
    witness_.pointer(id, event, isButton ? tileAt(event.position) : std::nullopt);
    listener_.pointerEvent(event);
}

}
