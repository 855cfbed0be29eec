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
        // One that goes when it is closed would be none of ours.
        made.releasedWhenClosed = NO;
        window_ = made;
        window_.title = toNSString(style.title);
        // An accessory program cannot take the user to another desktop: the window comes to the
        // user's.
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
        // The activation is a request that the system may refuse.
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
