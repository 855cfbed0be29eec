#include "ProgramWindows/FocusReturn.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Notifications.hpp"
#include "ProgramWindows/TitledWindow.hpp"

#import <dispatch/dispatch.h>

#include <algorithm>
#include <utility>

namespace vireline::macos {

FocusReturn::FocusReturn()
    : closing_(observe(ownCenter(), NSWindowWillCloseNotification,
                       lifetime_.guard([this](NSNotification*) { giveBackSoon(); }))) {}

void FocusReturn::remember() {
    attempt("frontmostApplication", [this] {
        NSRunningApplication* const front = NSWorkspace.sharedWorkspace.frontmostApplication;
        if (front.processIdentifier != NSProcessInfo.processInfo.processIdentifier)
            before_ = front;
    });
}

/// Deferred, because the window that is about to close is still visible.
void FocusReturn::giveBackSoon() {
    const auto later = lifetime_.guard([this] { giveBack(); });
    dispatch_async(dispatch_get_main_queue(), ^{
      later();
    });
}

void FocusReturn::giveBack() {
    if (std::ranges::any_of(windows_, [](const auto* window) { return window->isVisible(); }))
        return;
    attempt("activateWithOptions", [this] {
        NSRunningApplication* const before = std::exchange(before_, nil);
        if (before == nil || before.terminated || !NSApplication.sharedApplication.active)
            return;
        if (@available(macOS 14, *))
            [NSApplication.sharedApplication yieldActivationToApplication:before];
        [before activateWithOptions:0];
    });
}

}
