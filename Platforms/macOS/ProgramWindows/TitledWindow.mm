#include "ProgramWindows/TitledWindow.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "ProgramWindows/FocusReturn.hpp"

#include <utility>

namespace vireline::macos {
namespace {

NSWindowStyleMask mask(const WindowStyle& style) {
    const NSWindowStyleMask always = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable;
    return style.isMiniaturizable ? always | NSWindowStyleMaskMiniaturizable : always;
}

}

TitledWindow::TitledWindow(const WindowStyle& style, std::shared_ptr<FocusReturn> focus)
    : focus_(std::move(focus)) {
    focus_->add(*this);
    attempt("titled window", [&] {
        NSWindow* const made =
            [[NSWindow alloc] initWithContentRect:NSRect{{}, toCGSize(style.contentSize)}
                                        styleMask:mask(style)
                                          backing:NSBackingStoreBuffered
                                            defer:NO];
        // ARC owns the window; releasing it on close would release it once too often.
        made.releasedWhenClosed = NO;
        window_ = made;
        window_.title = toNSString(style.title);
        // An accessory application cannot switch to the space of its window, so the window moves to
        // the current space.
        window_.collectionBehavior = NSWindowCollectionBehaviorMoveToActiveSpace |
                                     NSWindowCollectionBehaviorFullScreenAuxiliary;
        [window_ center];
    });
}

TitledWindow::~TitledWindow() {
    focus_->remove(*this);
    close();
}

void TitledWindow::setContent(NSView* content) {
    attempt("setContentView", [&] { window_.contentView = content; });
}

void TitledWindow::makeKeyAndOrderFront() {
    focus_->remember();
    attempt("makeKeyAndOrderFront", [this] {
        [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
        [window_ makeKeyAndOrderFront:nil];
        // The system may refuse to activate the application.
        [window_ orderFrontRegardless];
    });
}

void TitledWindow::close() {
    attempt("close", [this] { [window_ close]; });
}

bool TitledWindow::isVisible() const {
    return attemptOr(false, "isVisible",
                     [this]() -> bool { return window_.visible || window_.miniaturized; });
}

}
