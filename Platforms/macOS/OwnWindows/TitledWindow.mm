#include "OwnWindows/TitledWindow.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

namespace vireline::macos {
namespace {

NSWindowStyleMask mask(const WindowStyle& style) {
    const NSWindowStyleMask always = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable;
    return style.isMiniaturizable ? always | NSWindowStyleMaskMiniaturizable : always;
}

}

TitledWindow::TitledWindow(const WindowStyle& style)
    : window_([[NSWindow alloc] initWithContentRect:NSRect{{}, toCGSize(style.contentSize)}
                                          styleMask:mask(style)
                                            backing:NSBackingStoreBuffered
                                              defer:NO]) {
    window_.title = toNSString(style.title);
    window_.releasedWhenClosed = NO;
    [window_ center];
}

TitledWindow::~TitledWindow() {
    close();
}

void TitledWindow::setContent(NSView* content) {
    window_.contentView = content;
}

void TitledWindow::makeKeyAndOrderFront() {
    attempt("makeKeyAndOrderFront", [this] {
        [window_ makeKeyAndOrderFront:nil];
        [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
    });
}

void TitledWindow::close() {
    attempt("close", [this] { [window_ close]; });
}

bool TitledWindow::isVisible() const {
    return window_.visible || window_.miniaturized;
}

}
