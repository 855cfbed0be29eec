#include "Panels/MacPanelWindow.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Bridge/Notifications.hpp"
#include "Displays/MacScreens.hpp"
#include "Panels/CancelWatch.hpp"
#include "Panels/VirelinePanelContent.hpp"
#include "Platform/PanelTitles.hpp"

#import <dispatch/dispatch.h>

#include <array>
#include <string>
#include <utility>

namespace vireline::macos {
namespace {

VirelinePanel* make(const Rect& frame, const std::shared_ptr<PanelInput>& input) {
    return attemptOr<VirelinePanel*>(nil, "initWithContentRect", [&] {
        return [[VirelinePanel alloc] initWithFrame:toCGRect(frame) input:input];
    });
}

VirelineDockView* fill(VirelinePanel* panel, const std::shared_ptr<PanelInput>& input) {
    VirelinePanelContent* const content = [[VirelinePanelContent alloc] initWithPanel:panel
                                                                                input:input];
    VirelineDockView* const dock = [[VirelineDockView alloc] initWithFrame:content.bounds
                                                                     input:input];
    [content addSubview:dock];
    panel.contentView = content;
    return dock;
}

VirelineDockView* attemptToFill(VirelinePanel* panel, const std::shared_ptr<PanelInput>& input) {
    return attemptOr<VirelineDockView*>(nil, "setContentView", [&] { return fill(panel, input); });
}

/// The panel has no title bar, so only lists of windows show its title. Assistive technology gets
/// the name of the display, which is more useful than its number.
void name(VirelinePanel* panel, std::uint32_t displayID) {
    attempt("setTitle", [&] { panel.title = toNSString(panelTitle(displayID)); });
    const auto display = displayName(displayID);
    if (display)
        attempt("setAccessibilityTitle",
                [&] { panel.accessibilityTitle = toNSString(accessiblePanelTitle(*display)); });
}

}

MacPanelWindow::MacPanelWindow(std::uint32_t displayID, const Rect& frame,
                               PanelWindowListener& listener)
    : input_(std::make_shared<PanelInput>(listener))
    , frame_(frame)
    , hostedFrame_{0, 0, frame.width, frame.height}
    , panel_(make(frame, input_))
    , dock_(attemptToFill(panel_, input_))
    , frames_(dock_, [&listener] { listener.frameDue(); }) {
    name(panel_, displayID);
    placeDock();
    observe();
}

/// After any of these notifications, the window may have been moved, or may show outdated contents.
void MacPanelWindow::observe() {
    const auto changed = lifetime_.guard([this](NSNotification*) { restore(); });
    subscriptions_.push_back(
        macos::observe(ownCenter(), NSApplicationDidChangeScreenParametersNotification, changed));
    const std::array<NSNotificationName, 3> names{NSWorkspaceDidWakeNotification,
                                                  NSWorkspaceScreensDidWakeNotification,
                                                  NSWorkspaceSessionDidBecomeActiveNotification};
    for (NSNotificationName name : names)
        subscriptions_.push_back(macos::observe(workspaceCenter(), name, changed));
}

MacPanelWindow::~MacPanelWindow() {
    attempt("close", [this] {
        panel_.contentView = nil;
        [panel_ close];
    });
}

void MacPanelWindow::setFrame(const Rect& frame, bool animate) {
    isHeldAtRight_ = HostedView::staysAtRight(frame_, frame);
    frame_ = frame;
    overhang_ = nextOverhang_;
    attempt("setFrame", [&] { applyFrame(animate); });
    placeDock();
    lookAtPointerSoon();
}

/// Goes through the animator even without animation, to replace an animation that is running: that
/// would move the window to an outdated frame.
void MacPanelWindow::applyFrame(bool animate) {
    const NSRect extent = toCGRect(overhang_.around(frame_));
    const auto arrived = lifetime_.guard([this] { lookAtPointerSoon(); });
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext* context) {
          if (!animate)
              context.duration = 0;
          [panel_.animator setFrame:extent display:YES];
        }
        completionHandler:^{
          arrived();
        }];
    if (!animate)
        [panel_ setFrame:extent display:YES];
}

void MacPanelWindow::setHostedFrame(const Rect& frame) {
    hostedFrame_ = frame;
    placeDock();
}

/// The dock's view includes the overhang; its coordinates are those of the hosted view. While an
/// animation changes the window's width with the right edge fixed, the view must keep its distance
/// from that edge, or it would move with the left one.
void MacPanelWindow::placeDock() {
    const Rect inWindow{hostedFrame_.x + overhang_.left, hostedFrame_.y + overhang_.bottom,
                        hostedFrame_.width, hostedFrame_.height};
    attempt("placeDock", [&] {
        const Rect hosted = HostedView::onWholePixels(inWindow, panel_.backingScaleFactor);
        input_->setOverhang(overhang_, frame_.size());
        input_->setHosted({hosted});
        Rect placed = overhang_.around(hosted);
        if (isHeldAtRight_)
            placed.x += panel_.frame.size.width - overhang_.around(frame_).width;
        dock_.autoresizingMask = isHeldAtRight_ ? NSViewMinXMargin : 0;
        dock_.frame = toCGRect(placed);
        dock_.bounds = toCGRect(overhang_.around(hosted.size()));
    });
}

void MacPanelWindow::present(const Scene& scene) {
    input_->setInputRegion(scene.inputRegion);
    attempt("present", [&] { [dock_ presentScene:scene]; });
}

void MacPanelWindow::restore() {
    attempt("restore", [this] {
        applyFrame(false);
        placeDock();
        [dock_ presentAgain];
    });
    frames_.catchUp();
    lookAtPointerSoon();
}

void MacPanelWindow::watchForCancel(bool watches) {
    cancelWatch_.reset();
    if (watches)
        cancelWatch_ = macos::watchForCancel(lifetime_.guard([this] { input_->cancelled(); }));
}

void MacPanelWindow::checkPress() {
    attempt("checkPress", [this] {
        input_->polled(pointer(), panel_.isUnderPointer, (NSEvent.pressedMouseButtons & 1) != 0);
    });
}

void MacPanelWindow::orderFrontRegardless() {
    attempt("orderFrontRegardless", [this] { [panel_ orderFrontRegardless]; });
    lookAtPointerSoon();
}

void MacPanelWindow::orderOut() {
    menu_.reset();
    attempt("orderOut", [this] { [panel_ orderOut:nil]; });
    input_->dragEnded();
    input_->hidden();
}

/// If the window moves under the pointer or away from it, the system sends no event until the
/// pointer moves.
void MacPanelWindow::lookAtPointerSoon() {
    const auto look = lifetime_.guard([this] { lookAtPointer(); });
    dispatch_async(dispatch_get_main_queue(), ^{
      look();
    });
}

void MacPanelWindow::lookAtPointer() {
    attempt("lookAtPointer", [this] {
        const NSUInteger buttons = NSEvent.pressedMouseButtons;
        if (panel_.isUnderPointer && input_->isOver(pointer()))
            input_->pointerEntered(pointer(), buttons != 0);
        else
            input_->pointerLeft((buttons & 1) != 0);
    });
}

Point MacPanelWindow::pointer() const {
    return toPoint([panel_ convertPointFromScreen:NSEvent.mouseLocation]);
}

void MacPanelWindow::popUpMenu(const Menu& menu, const MenuPlace& place,
                               std::function<void()> onClose) {
    if (menu.entries.empty())
        return onClose();
    if (const auto open = menu_)
        open->end();
    input_->menuOpened();
    menu_ = PopUpMenu::open(menu, dock_, place,
                            [this, onClose = std::move(onClose)](const MenuAction& chosen) {
                                menuClosed(chosen, onClose);
                            });
}

void MacPanelWindow::menuClosed(const MenuAction& chosen, const std::function<void()>& onClose) {
    menu_.reset();
    const auto [at, isHere] = attemptOr(std::pair{Point{}, false}, "mouseLocation", [this] {
        return std::pair{pointer(), static_cast<bool>(panel_.isUnderPointer)};
    });
    input_->menuClosed(at, isHere);
    onClose();
    if (chosen)
        chosen();
}

}
