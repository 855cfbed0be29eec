#include "ProgramWindows/OnboardingView.hpp"

namespace vireline::OnboardingView {
namespace {

OnboardingPage purpose(const DesktopWords& words) {
    OnboardingPage page;
    page.title = "Every display deserves a " + words.anyDock;
    page.text = "Vireline puts a dock on every display that does not have one. " +
                words.dockAtStart + " stays exactly where it is, badges and all.";
    return page;
}

OnboardingPage conduct(const DesktopWords& words) {
    OnboardingPage page;
    page.title = "It behaves like the real thing";
    page.rows = {
        {"cursorarrow.click", "Click to launch, raise, or hide. Right-click for options."},
        {"rectangle.on.rectangle",
         "Mirrors " + words.dock + " automatically. Drag a tile to make it your own list instead."},
        {"slider.horizontal.3",
         "Auto-hide, position, icon size and magnification live in Settings" + words.wayToSettings},
        {"arrow.left.arrow.right",
         "If " + words.dock + " visits this display, Vireline politely swaps to the other one."},
    };
    return page;
}

PermissionBlock permission(DockAnchorGuard::Status status, const DesktopWords& words) {
    using Tone = StatusLine::Tone;
    PermissionBlock block;
    switch (status) {
    case DockAnchorGuard::Status::active:
        block.line = StatusLine{
            "checkmark.circle.fill", Tone::positive, "Enabled. Enjoy.", Tone::neutral, {}};
        break;
    case DockAnchorGuard::Status::waitingForPermission:
        block.line = StatusLine{{}, Tone::neutral, words.tourWaits, Tone::neutral, {}};
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

std::string featuresText(bool canMoveWindows, const DesktopWords& words) {
    if (canMoveWindows)
        return words.offersAnchor ? words.fourFeatures : words.threeFeatures;
    if (!words.offersAnchor)
        return words.cannotMoveWindows;
    return "The last three need a window manager that can move other programs' windows. "
           "No such window manager is running now.";
}

OnboardingPage features(const Surroundings& surroundings, const DesktopWords& words) {
    using Status = DockAnchorGuard::Status;
    OnboardingPage page;
    page.title = "Window superpowers";
    page.text = featuresText(surroundings.canMoveWindows, words);
    page.rows = {
        {"pin", "Anchor: " + words.dock + " stops jumping between displays"},
        {"macwindow.badge.plus", "Open here: apps launched from a dock open on that display"},
        {"arrow.right.doc.on.clipboard", "Summon: click a running app to bring its window over"},
        {"rectangle.expand.vertical", "Fill: double-click to fill the display, dock kept clear"},
    };
    page.permission = permission(surroundings.anchorStatus, words);
    if (!words.offersAnchor) {
        page.rows.erase(page.rows.begin());
        page.permission =
            permission(surroundings.hasFeatures ? Status::active : Status::off, words);
    }
    return page;
}

OnboardingPage content(int step, const Surroundings& surroundings, const DesktopWords& words) {
    if (step == 0)
        return purpose(words);
    return step < lastStep ? conduct(words) : features(surroundings, words);
}

}

OnboardingPage page(int step, const Surroundings& surroundings, const DesktopWords& words) {
    OnboardingPage page = content(step, surroundings, words);
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
