#include "Windows/OnboardingView.hpp"

namespace vireline::OnboardingView {
namespace {

OnboardingPage purpose() {
    OnboardingPage page;
    page.title = "Every display deserves a Dock";
    page.text = "Vireline puts a dock on every display that does not have one. Apple's Dock stays "
                "exactly where it is, badges and all.";
    return page;
}

OnboardingPage conduct() {
    OnboardingPage page;
    page.title = "It behaves like the real thing";
    page.rows = {
        {"cursorarrow.click", "Click to launch, raise, or hide. Right-click for options."},
        {"rectangle.on.rectangle", "Mirrors Apple's Dock automatically. Drag a tile to make it "
                                   "your own list instead."},
        {"slider.horizontal.3", "Auto-hide, position, icon size and magnification live in "
                                "Settings, in the menu bar."},
        {"arrow.left.arrow.right", "If Apple's Dock visits this display, Vireline politely swaps "
                                   "to the other one."},
    };
    return page;
}

PermissionBlock permission(DockAnchorGuard::Status status) {
    using Tone = StatusLine::Tone;
    PermissionBlock block;
    switch (status) {
    case DockAnchorGuard::Status::active:
        block.line = StatusLine{
            "checkmark.circle.fill", Tone::positive, "Enabled. Enjoy.", Tone::neutral, {}};
        break;
    case DockAnchorGuard::Status::waitingForPermission:
        block.line = StatusLine{{},
                                Tone::neutral,
                                "Grant Vireline access in the Accessibility pane that just "
                                "opened, and this turns green by itself.",
                                Tone::neutral,
                                {}};
        break;
    case DockAnchorGuard::Status::off:
        block.button =
            OnboardingButton{"Enable window superpowers", OnboardingAction::enableFeatures};
        block.caption = "Optional. Everything else works without it, and you can change your mind "
                        "in Settings anytime.";
        break;
    }
    return block;
}

OnboardingPage features(DockAnchorGuard::Status status) {
    OnboardingPage page;
    page.title = "Window superpowers";
    page.text = "One macOS permission unlocks four more features";
    page.rows = {
        {"pin", "Anchor: Apple's Dock stops jumping between displays"},
        {"macwindow.badge.plus", "Open here: apps launched from a dock open on that display"},
        {"arrow.right.doc.on.clipboard", "Summon: click a running app to bring its window over"},
        {"rectangle.expand.vertical", "Fill: double-click to fill the display, dock kept clear"},
    };
    page.permission = permission(status);
    return page;
}

OnboardingPage content(int step, DockAnchorGuard::Status status) {
    if (step == 0)
        return purpose();
    return step < lastStep ? conduct() : features(status);
}

}

OnboardingPage page(int step, DockAnchorGuard::Status anchorStatus) {
    OnboardingPage page = content(step, anchorStatus);
    page.index = step;
    page.pageCount = lastStep + 1;
    if (step > 0)
        page.buttons.push_back({"Back", OnboardingAction::back});
    if (step < lastStep)
        page.buttons.push_back({"Continue", OnboardingAction::advance});
    else
        page.buttons.push_back({"Start using Vireline", OnboardingAction::finish});
    return page;
}

}
