// The content of the settings window.
#include "Adapters/ViewSearch.hpp"
#include "Cocoa/Paper.hpp"
#include "Platform/ProgramWindows.hpp"
#include "ProgramTest.hpp"
#include "ProgramWindows/MacProgramWindows.hpp"
#include "Support/RecordingFormListener.hpp"
#include "Translation/FormLayout.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireline::macos {
namespace {

class FormWindows : public testing::Test {
protected:
    static FormRow row(SettingsField field, const std::string& title,
                       decltype(FormRow::control) control) {
        return {field, title, std::move(control), {}, {}};
    }

    /// A form with every kind of control, a caption and a status line.
    static Form everything() {
        FormRow guarded = row(SettingsField::anchorAppleDock, "Anchor", Toggle{true});
        guarded.caption = "Explained below";
        guarded.status = StatusLine{.symbol = "checkmark",
                                    .symbolTone = StatusLine::Tone::positive,
                                    .text = "Active.",
                                    .textTone = StatusLine::Tone::warning,
                                    .button = "Open…"};
        return {{{"First",
                  {row(SettingsField::sourceMode, "Source", RadioGroup{{"Mirror", "Manual"}, 1}),
                   row(SettingsField::position, "Position", Segments{{"One", "Two"}, 1})}},
                 {"Second",
                  {row(SettingsField::iconSize, "Size", Slider{32, 64, 1, 44, "44"}), guarded}}}};
    }

    void show(const Form& form) {
        @autoreleasepool {
            window->present(form);
        }
    }
    [[nodiscard]] static NSWindow* shown() { return paper::windowTitled("Form"); }
    [[nodiscard]] static NSView* content() { return shown().contentView; }

    test::RecordingFormListener heard;
    std::unique_ptr<FormWindow> window =
        MacProgramWindows{}.makeFormWindow({.title = "Form", .contentSize = {480, 560}}, heard);
};

TEST_F(FormWindows, ShowTheValueOfEveryControl) {
    @autoreleasepool {
        show(everything());
        EXPECT_EQ([controlNamed(shown(), "Mirror") state], NSControlStateValueOff);
        EXPECT_EQ([controlNamed(shown(), "Manual") state], NSControlStateValueOn);
        EXPECT_EQ([controlNamed(shown(), "Position") selectedSegment], 1);
        NSSlider* const slider = controlNamed(shown(), "Size");
        EXPECT_EQ(slider.doubleValue, 44);
        EXPECT_EQ(slider.minValue, 32);
        EXPECT_EQ(slider.maxValue, 64);
        EXPECT_NE(label(content(), "44"), nil);
        EXPECT_EQ(label(content(), "44").alignment, NSTextAlignmentRight);
        EXPECT_EQ([controlNamed(shown(), "Anchor") state], NSControlStateValueOn);
        EXPECT_NE(label(content(), "First"), nil);
        EXPECT_NE(label(content(), "Source"), nil);
        EXPECT_FALSE(label(content(), "Explained below").hidden);
        EXPECT_EQ(label(content(), "Active.").textColor.paperName.paperText, "systemOrange");
        const auto symbols = viewsOf(content(), NSImageView.class);
        ASSERT_EQ(symbols.size(), 1U);
        NSImageView* const symbol = static_cast<NSImageView*>(static_cast<id>(symbols.front()));
        EXPECT_EQ(symbol.contentTintColor.paperName.paperText, "systemGreen");
        EXPECT_EQ(symbol.image.paperName.paperText, "checkmark");
    }
}

TEST_F(FormWindows, TellWhatTheUserDoes) {
    @autoreleasepool {
        show(everything());
        push(controlNamed(shown(), "Mirror"));
        NSSegmentedControl* const position = controlNamed(shown(), "Position");
        position.selectedSegment = 0;
        [position paperAct];
        position.selectedSegment = -1;
        [position paperAct];
        paper::dragSlider(controlNamed(shown(), "Size"), 50);
        switchOn(controlNamed(shown(), "Anchor"), false);
        push(controlNamed(shown(), "Open…"));
        using Changes = std::vector<std::pair<SettingsField, FormValue>>;
        EXPECT_TRUE(
            (heard.changes == Changes{{SettingsField::sourceMode, FormValue{std::size_t{0}}},
                                      {SettingsField::position, FormValue{std::size_t{0}}},
                                      {SettingsField::iconSize, FormValue{50.0}},
                                      {SettingsField::iconSize, FormValue{50.0}},
                                      {SettingsField::anchorAppleDock, FormValue{false}}}));
        EXPECT_EQ(heard.pressed, std::vector{SettingsField::anchorAppleDock});
    }
}

TEST_F(FormWindows, LeaveASliderAloneThatTheUserHolds) {
    @autoreleasepool {
        show(everything());
        NSSlider* const slider = controlNamed(shown(), "Size");
        paper::movePointer({5000, 5000});
        paper::press();
        NSEvent* const dragged = [[NSEvent alloc] init];
        dragged.type = NSEventTypeLeftMouseDragged;
        NSApplication.sharedApplication.currentEvent = dragged;
        slider.doubleValue = 50.3;
        [slider paperAct];
        Form form = everything();
        form.sections[1].rows[0].control = Slider{32, 64, 1, 50, "50"};
        show(form);
        EXPECT_DOUBLE_EQ(slider.doubleValue, 50.3);
        paper::release();
        show(form);
        EXPECT_DOUBLE_EQ(slider.doubleValue, 50.3);
        [slider paperAct];
        EXPECT_DOUBLE_EQ(slider.doubleValue, 50);
        EXPECT_NE(label(content(), "50"), nil);
    }
}

TEST_F(FormWindows, KeepTheControlsOfRowsThatStay) {
    @autoreleasepool {
        show(everything());
        const id anchor = controlNamed(shown(), "Anchor");
        Form form = everything();
        form.sections[1].rows[1].status->text = "Waiting.";
        show(form);
        EXPECT_NE(label(content(), "Waiting."), nil);
        form.sections[1].rows.erase(form.sections[1].rows.begin());
        form.sections[1].rows[0].caption.clear();
        form.sections[1].rows[0].status.reset();
        show(form);
        EXPECT_EQ(controlNamed(shown(), "Anchor"), anchor);
        EXPECT_EQ(controlNamed(shown(), "Size"), nil);
        EXPECT_EQ(label(content(), "Explained below"), nil);
        form.sections[0].rows[0].control = RadioGroup{{"Mirror", "Manual", "Third"}, 2};
        form.sections[0].rows[1].control = Segments{{"One", "Two", "Three"}, 2};
        show(form);
        EXPECT_EQ([controlNamed(shown(), "Third") state], NSControlStateValueOn);
        EXPECT_EQ([controlNamed(shown(), "Position") selectedSegment], 2);
        EXPECT_EQ([controlNamed(shown(), "Position") paperLabels].count, 3U);
        show(everything());
        Form larger = everything();
        larger.sections[1].rows[0].control = Slider{16, 128, 1, 100, "100"};
        show(larger);
        NSSlider* const slider = controlNamed(shown(), "Size");
        EXPECT_EQ(slider.minValue, 16);
        EXPECT_EQ(slider.maxValue, 128);
        EXPECT_EQ(slider.doubleValue, 100);
        show(form);
        // Includes the button of a hidden status line.
        EXPECT_EQ(viewsOf(content(), NSButton.class).size(), 4U);
        form.sections.pop_back();
        show(form);
        EXPECT_EQ(label(content(), "Second"), nil);
        EXPECT_EQ(controlNamed(shown(), "Anchor"), nil);
        show(everything());
        EXPECT_NE(controlNamed(shown(), "Anchor"), nil);
        EXPECT_EQ(viewsOf(content(), NSButton.class).size(), 3U);
    }
}

TEST_F(FormWindows, DivideTheRowsOfABoxByLines) {
    @autoreleasepool {
        const auto lines = [] {
            const auto boxes = viewsOf(content(), NSBox.class);
            return std::ranges::count_if(boxes, [](NSView* view) {
                return static_cast<NSBox*>(static_cast<id>(view)).boxType == NSBoxSeparator;
            });
        };
        show(everything());
        EXPECT_EQ(lines(), 2);
        Form form = everything();
        form.sections[1].rows.pop_back();
        show(form);
        EXPECT_EQ(lines(), 1);
        show(everything());
        EXPECT_EQ(lines(), 2);
    }
}

TEST_F(FormWindows, LayRowsOutWithoutAnyOnTopOfAnother) {
    @autoreleasepool {
        show(everything());
        std::vector<Rect> frames;
        for (const Class kind : {NSTextField.class, NSSwitch.class, NSSegmentedControl.class,
                                 NSSlider.class, NSButton.class, NSImageView.class}) {
            for (NSView* view : viewsOf(content(), kind))
                if (!view.hidden && !view.superview.hidden && toRect(view.frame).width > 0)
                    frames.push_back(inWindow(view));
        }
        EXPECT_GE(frames.size(), 12U);
        const auto overlap = [](const Rect& a, const Rect& b) {
            return std::min(a.maxX(), b.maxX()) > std::max(a.minX(), b.minX()) + 0.5 &&
                   std::min(a.maxY(), b.maxY()) > std::max(a.minY(), b.minY()) + 0.5;
        };
        for (std::size_t one = 0; one < frames.size(); ++one)
            for (std::size_t other = 0; other < one; ++other)
                EXPECT_FALSE(overlap(frames[one], frames[other]))
                    << frames[one] << " and " << frames[other];
        NSSlider* const slider = controlNamed(shown(), "Size");
        EXPECT_DOUBLE_EQ(slider.frame.size.width, 180);
        EXPECT_DOUBLE_EQ(label(content(), "44").frame.size.width, sliderValueWidth);
        const NSButton* const mirror = controlNamed(shown(), "Mirror");
        const NSButton* const manual = controlNamed(shown(), "Manual");
        EXPECT_DOUBLE_EQ(mirror.frame.origin.x, 0);
        EXPECT_DOUBLE_EQ(manual.frame.origin.x, 0);
        EXPECT_DOUBLE_EQ(mirror.frame.origin.y, 0);
        EXPECT_DOUBLE_EQ(manual.frame.origin.y, mirror.frame.size.height);
        EXPECT_GT(slider.frame.size.height, 0);
        EXPECT_GT(inWindow(label(content(), "First")).minY(),
                  inWindow(label(content(), "Second")).maxY());
        EXPECT_GT(inWindow(label(content(), "Source")).minY(),
                  inWindow(label(content(), "Position")).maxY());
        const NSSwitch* const anchor = controlNamed(shown(), "Anchor");
        const NSView* const rows = anchor.superview.superview;
        EXPECT_DOUBLE_EQ(rows.frame.size.width,
                         FormLayout::rowWidth(480) + 2 * FormLayout::boxPadding);
        NSView* const document = viewsOf(content(), NSClassFromString(@"VirelineFlippedView"))[0];
        EXPECT_DOUBLE_EQ(document.frame.size.width, 480);
        EXPECT_GE(document.frame.size.height, 560);
        EXPECT_DOUBLE_EQ(document.frame.origin.x, 0);
        EXPECT_DOUBLE_EQ(document.frame.origin.y, 0);
    }
}

TEST_F(FormWindows, PutAStatusIntoOneLineWithinTheRow) {
    @autoreleasepool {
        Form form = everything();
        const std::string text = "A text that is far too long for the room beside its button, and "
                                 "so has to be broken into several lines";
        form.sections[1].rows[1].status->text = text;
        show(form);
        const NSView* const symbol = viewsOf(content(), NSImageView.class)[0];
        const NSView* const status = label(content(), text);
        const NSView* const button = controlNamed(shown(), "Open…");
        EXPECT_DOUBLE_EQ(symbol.frame.origin.x, 0);
        EXPECT_DOUBLE_EQ(status.frame.origin.x, toRect(symbol.frame).maxX() + FormLayout::gap);
        EXPECT_DOUBLE_EQ(button.frame.origin.x, toRect(status.frame).maxX() + FormLayout::gap);
        EXPECT_LE(toRect(button.frame).maxX(), FormLayout::rowWidth(480));
        EXPECT_GT(status.frame.size.width, 0);
        EXPECT_GT(button.frame.size.width, 0);
        EXPECT_DOUBLE_EQ(static_cast<NSButton*>(controlNamed(shown(), "Open…")).font.paperSize,
                         NSFont.smallSystemFontSize);
    }
}

TEST_F(FormWindows, CanBeScrolledWhereTheyDoNotFit) {
    @autoreleasepool {
        ASSERT_TRUE([content() isKindOfClass:NSScrollView.class]);
        NSScrollView* const scrolling = static_cast<NSScrollView*>(static_cast<id>(content()));
        EXPECT_TRUE(scrolling.hasVerticalScroller);
        EXPECT_TRUE(scrolling.autohidesScrollers);
    }
}

TEST_F(FormWindows, AreForgottenByThoseThatStayWhenTheyAreDestroyed) {
    @autoreleasepool {
        paper::plug({{.number = 1}});
        MacProgramWindows windows;
        auto first = windows.makeFormWindow({.title = "First", .contentSize = {480, 560}}, heard);
        auto second = windows.makeFormWindow({.title = "Second", .contentSize = {480, 560}}, heard);
        first->makeKeyAndOrderFront();
        second->makeKeyAndOrderFront();
        first = nullptr;
        second->close();
        paper::drain();
        EXPECT_FALSE(second->isVisible());
    }
}

TEST_F(FormWindows, ComeToTheMiddleOfTheDisplayWithTheFocus) {
    @autoreleasepool {
        paper::plug({{.number = 1}});
        window =
            MacProgramWindows{}.makeFormWindow({.title = "Form", .contentSize = {480, 560}}, heard);
        EXPECT_FALSE(window->isVisible());
        paper::requests().clear();
        window->makeKeyAndOrderFront();
        EXPECT_EQ(paper::requests(), std::vector<std::string>{"activate"});
        EXPECT_TRUE(shown().paperIsKey);
        EXPECT_DOUBLE_EQ(toRect(shown().frame).midX(), 720);
        EXPECT_TRUE(window->isVisible());
        window->close();
        EXPECT_FALSE(window->isVisible());
    }
}

}
}
