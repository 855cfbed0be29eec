// A user's actions in the program's own windows and its status item.
#include "ProgramTest.hpp"
#include "Storm/PaperWorld.hpp"

#include <array>

namespace vireline::storm {
namespace {

using test::Random;

void collect(NSView* view, NSMutableArray* controls) {
    for (NSView* child in view.subviews) {
        if ([child isKindOfClass:NSControl.class] &&
            static_cast<NSControl*>(static_cast<id>(child)).action != nullptr && !child.hidden)
            [controls addObject:child];
        collect(child, controls);
    }
}

NSWindow* openSettings() {
    static_cast<void>(paper::chooseStatusItem("Settings…"));
    return paper::windowTitled("Vireline Settings");
}

void use(id control, Random& random) {
    if ([control isKindOfClass:NSSlider.class]) {
        NSSlider* const slider = control;
        paper::dragSlider(slider, random.real(slider.minValue, slider.maxValue));
    } else if ([control isKindOfClass:NSSegmentedControl.class]) {
        NSSegmentedControl* const segments = control;
        segments.selectedSegment = random.integer(0, 2);
        [segments paperAct];
    } else if ([control isKindOfClass:NSSwitch.class]) {
        switchOn(control, random.boolean());
    } else {
        push(control);
    }
}

void useSettings(PaperWorld& world, Random& random) {
    NSMutableArray* const controls = [NSMutableArray array];
    collect(openSettings().contentView, controls);
    if (controls.count == 0)
        return world.fail("the settings have no controls");
    const int last = static_cast<int>(controls.count) - 1;
    const id control = controls[static_cast<NSUInteger>(random.integer(0, last))];
    world.note(' ',
               [control accessibilityLabel] == nil ? "" : [[control accessibilityLabel] paperText]);
    use(control, random);
}

void useTour(PaperWorld& /*world*/, Random& random) {
    static_cast<void>(paper::chooseStatusItem("Welcome Tour…"));
    for (int count = random.integer(1, 4); count > 0; --count) {
        NSWindow* const tour = paper::windowTitled("Welcome to Vireline");
        NSMutableArray* const controls = [NSMutableArray array];
        collect(tour.contentView, controls);
        if (controls.count == 0)
            return;
        const int last = static_cast<int>(controls.count) - 1;
        push(controls[static_cast<NSUInteger>(random.integer(0, last))]);
    }
}

void useStatusMenu(PaperWorld& /*world*/, Random& random) {
    constexpr std::array titles{"Settings…", "Welcome Tour…", "Launch at Login"};
    static_cast<void>(
        paper::chooseStatusItem(titles.at(static_cast<std::size_t>(random.integer(0, 2)))));
}

void closeWindows(PaperWorld& /*world*/, Random& random) {
    for (const char* const title : {"Vireline Settings", "Welcome to Vireline"})
        if (random.boolean())
            [paper::windowTitled(title) close];
}

void reopen(PaperWorld& /*world*/, Random& random) {
    paper::refuseActivation(random.boolean());
    paper::reopen();
}

}

std::vector<PaperEvent> windowEvents() {
    return {{"a control", 14, useSettings},
            {"the tour", 2, useTour},
            {"the status item", 2, useStatusMenu},
            {"windows are closed", 3, closeWindows},
            {"the program is opened again", 1, reopen}};
}

}
