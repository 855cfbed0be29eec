#include "Panels/AppKitPanelWindow.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Bridge/Notifications.hpp"
#include "Panels/CancelWatch.hpp"
#include "Panels/VirelinePanelContent.hpp"

#import <dispatch/dispatch.h>

#include <array>
#include <string>
#include <utility>

namespace vireline::macos {
namespace {

VirelineDockView* fill(VirelinePanel* panel, const std::shared_ptr<PanelInput>& input) {
    VirelinePanelContent* const content = [[VirelinePanelContent alloc] initWithPanel:panel
                                                                                input:input];
    VirelineDockView* const dock = [[VirelineDockView alloc] initWithFrame:content.bounds
                                                                     input:input];
    [content addSubview:dock];
    panel.contentView = content;
    return dock;
}

}

AppKitPanelWindow::AppKitPanelWindow(std::uint32_t displayID, const Rect& frame,
                                     PanelWindowListener& listener)
    : input_(std::make_shared<PanelInput>(listener))
    , frame_(frame)
    , panel_([[VirelinePanel alloc] initWithFrame:toCGRect(frame) input:input_])
    , dock_(fill(panel_, input_))
    , frames_(dock_, lifetime_.guard([this] { showFrame(); })) {
    // Nobody sees it but assistive technology.
    panel_.title = toNSString("Vireline dock #" + std::to_string(displayID));
    input_->setHosted({{0, 0, frame.width, frame.height}});
    observe();
}

/// After any of these the window may have been moved, or show what is out of date.
void AppKitPanelWindow::observe() {
    const auto changed = lifetime_.guard([this](NSNotification*) { restore(); });
    subscriptions_.push_back(macos::observe(NSNotificationCenter.defaultCenter,
                                            NSApplicationDidChangeScreenParametersNotification,
                                            changed));
    const std::array<NSNotificationName, 3> names{NSWorkspaceDidWakeNotification,
                                                  NSWorkspaceScreensDidWakeNotification,
                                                  NSWorkspaceSessionDidBecomeActiveNotification};
    for (NSNotificationName name : names)
        subscriptions_.push_back(
            macos::observe(NSWorkspace.sharedWorkspace.notificationCenter, name, changed));
}

AppKitPanelWindow::~AppKitPanelWindow() {
    attempt("close", [this] {
        panel_.contentView = nil;
        [panel_ close];
    });
}

void AppKitPanelWindow::setFrame(const Rect& frame, bool animate) {
    frame_ = frame;
    attempt("setFrame", [&] { applyFrame(animate); });
    lookAtPointerSoon();
}

/// An animation that runs already is replaced: it would go on to where the window no longer belongs.
void AppKitPanelWindow::applyFrame(bool animate) {
    const auto arrived = lifetime_.guard([this] { lookAtPointerSoon(); });
    [NSAnimationContext
        runAnimationGroup:^(NSAnimationContext* context) {
          if (!animate)
              context.duration = 0;
          [panel_.animator setFrame:toCGRect(frame_) display:YES];
        }
        completionHandler:^{
          arrived();
        }];
    if (!animate)
        [panel_ setFrame:toCGRect(frame_) display:YES];
}

void AppKitPanelWindow::setHostedFrame(const Rect& frame) {
    input_->setHosted({frame});
    attempt("setHostedFrame", [&] { dock_.frame = toCGRect(frame); });
}

void AppKitPanelWindow::present(const Scene& scene) {
    input_->setInputRegion(scene.inputRegion);
    attempt("present", [&] { [dock_ presentScene:scene]; });
}

void AppKitPanelWindow::restore() {
    attempt("restore", [this] {
        applyFrame(false);
        [dock_ presentAgain];
    });
    frames_.catchUp();
    lookAtPointerSoon();
}

Timer AppKitPanelWindow::requestFrame(std::function<void()> onFrame) {
    auto request = std::make_shared<std::function<void()>>(std::move(onFrame));
    frameRequest_ = request;
    frames_.request();
    return Timer{std::move(request)};
}

void AppKitPanelWindow::showFrame() {
    if (const auto request = std::exchange(frameRequest_, {}).lock())
        (*request)();
}

void AppKitPanelWindow::watchForCancel(bool watches) {
    cancelWatch_.reset();
    if (watches)
        cancelWatch_ = macos::watchForCancel(lifetime_.guard([this] { input_->cancelled(); }));
}

void AppKitPanelWindow::orderFrontRegardless() {
    attempt("orderFrontRegardless", [this] { [panel_ orderFrontRegardless]; });
    lookAtPointerSoon();
}

void AppKitPanelWindow::orderOut() {
    menu_.reset();
    attempt("orderOut", [this] { [panel_ orderOut:nil]; });
    input_->dragEnded();
    input_->hidden();
}

/// A window that comes to lie under the pointer, or that is taken away from under it, hears nothing
/// from the system before the pointer moves.
void AppKitPanelWindow::lookAtPointerSoon() {
    const auto look = lifetime_.guard([this] { lookAtPointer(); });
    dispatch_async(dispatch_get_main_queue(), ^{
      look();
    });
}

void AppKitPanelWindow::lookAtPointer() {
    const bool isPrimaryHeld = (NSEvent.pressedMouseButtons & 1) != 0;
    if (!panel_.isUnderPointer)
        input_->pointerLeft(isPrimaryHeld);
    else if (!isPrimaryHeld)
        input_->pointerEntered(pointer());
}

Point AppKitPanelWindow::pointer() const {
    return toPoint([panel_ convertPointFromScreen:NSEvent.mouseLocation]);
}

void AppKitPanelWindow::popUpMenu(const Menu& menu, Point at, MenuClosed onClose) {
    if (menu.entries.empty())
        return onClose(std::nullopt);
    menu_.reset();
    input_->menuOpened();
    menu_ = PopUpMenu::open(menu, dock_, toCGPoint(at),
                            [this, onClose = std::move(onClose)](
                                std::optional<std::size_t> chosen) { menuClosed(chosen, onClose); });
}

void AppKitPanelWindow::menuClosed(std::optional<std::size_t> chosen, const MenuClosed& onClose) {
    // The menu owns the callback, and what it does may end this window.
    const MenuClosed tell = onClose;
    menu_.reset();
    input_->menuClosed(pointer(), panel_.isUnderPointer);
    tell(chosen);
}

}
