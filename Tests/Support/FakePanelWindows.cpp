#include "Support/FakePanelWindows.hpp"

#include "Foundation/Require.hpp"

#include <functional>
#include <utility>

namespace vireline::test {
namespace {

bool isThere(const FakePanel& panel) {
    return panel.isAlive() && !panel.isOrderedOut;
}

void callOnce(std::function<void()>& report) {
    if (const auto once = std::exchange(report, nullptr))
        once();
}

}

PanelWindowListener& FakePanel::listener() const {
    require(isAlive(), "the dock window is alive");
    return *listener_;
}

PointerTracker& FakePanel::pointer() const {
    require(isAlive(), "the dock window is alive");
    return *pointer_;
}

void FakePanel::choose(std::size_t index) {
    require(isAlive() && isMenuOpen_, "a menu is open");
    require(index < menus.back().menu.entries.size(), "the menu has that entry");
    const auto command = std::get<MenuCommand>(menus.back().menu.entries[index]);
    closeMenu();
    if (command.action)
        command.action();
}

void FakePanel::dismissMenu() {
    require(isAlive() && isMenuOpen_, "a menu is open");
    closeMenu();
}

void FakePanel::closeMenu() {
    isMenuOpen_ = false;
    const auto onClose = menus.back().onClose;
    onClose();
}

void FakePanel::nextFrame() {
    if (isAlive() && std::exchange(isFrameRequested_, false))
        listener_->frameDue();
}

FakePanelWindow::FakePanelWindow(std::shared_ptr<FakePanel> panel)
    : panel_(std::move(panel)), pointer_(panel_->listener()) {
    panel_->pointer_ = &pointer_;
}

FakePanelWindow::~FakePanelWindow() {
    panel_->listener_ = nullptr;
    panel_->pointer_ = nullptr;
    panel_->isVisible = false;
    panel_->isMenuOpen_ = false;
    for (FakePanel::PoppedMenu& menu : panel_->menus)
        menu.onClose = nullptr;
}

void FakePanelWindow::setFrame(const Rect& frame, bool animate) {
    panel_->frame = frame;
    panel_->overhang = panel_->nextOverhang;
    panel_->frameChanges.push_back({frame, animate});
    callOnce(panel_->onSetFrame);
}

void FakePanelWindow::setOverhang(const Overhang& overhang) {
    panel_->nextOverhang = overhang;
    callOnce(panel_->onSetOverhang);
}

void FakePanelWindow::requestFrame() {
    panel_->isFrameRequested_ = true;
    callOnce(panel_->onRequestFrame);
}

void FakePanelWindow::setHostedFrame(const Rect& frame) {
    panel_->hostedFrame = frame;
    pointer_.setViewArea(panel_->overhang.around(frame.size()));
}

void FakePanelWindow::present(const Scene& scene) {
    panel_->scene = scene;
    ++panel_->presentations;
}

void FakePanelWindow::orderFrontRegardless() {
    panel_->isVisible = true;
    panel_->isOrderedOut = false;
    ++panel_->timesOrderedFront;
}

void FakePanelWindow::orderOut() {
    panel_->isVisible = false;
    panel_->isOrderedOut = true;
    panel_->isMenuOpen_ = false;
    pointer_.hidden();
}

void FakePanelWindow::popUpMenu(const Menu& menu, const MenuPlace& place,
                                std::function<void()> onClose) {
    panel_->menus.push_back({menu, place, std::move(onClose)});
    panel_->isMenuOpen_ = true;
}

std::unique_ptr<PanelWindow> FakePanelWindows::makePanel(std::uint32_t displayID, const Rect& frame,
                                                         PanelWindowListener& listener) {
    made.push_back(std::make_shared<FakePanel>(displayID, frame, listener));
    return std::make_unique<FakePanelWindow>(made.back());
}

FakePanel* FakePanelWindows::find(std::uint32_t displayID) const {
    for (const auto& panel : made) {
        if (isThere(*panel) && panel->displayID == displayID)
            return panel.get();
    }
    return nullptr;
}

FakePanel& FakePanelWindows::panel(std::uint32_t displayID) const {
    FakePanel* found = find(displayID);
    require(found != nullptr, "the display has a dock window");
    return *found;
}

std::vector<std::uint32_t> FakePanelWindows::displays() const {
    std::vector<std::uint32_t> found;
    for (const auto& panel : made) {
        if (isThere(*panel))
            found.push_back(panel->displayID);
    }
    return found;
}

}
