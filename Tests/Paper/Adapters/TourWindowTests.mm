// The content of the welcome tour's window.
#include "Adapters/ViewSearch.hpp"
#include "Cocoa/Paper.hpp"
#include "Platform/ProgramWindows.hpp"
#include "ProgramTest.hpp"
#include "ProgramWindows/MacProgramWindows.hpp"
#include "Translation/PageLayout.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

class TourHeard final : public OnboardingListener {
public:
    void onboardingActed(OnboardingAction action) override { acted.push_back(action); }

    std::vector<OnboardingAction> acted;
};

class TourWindows : public testing::Test {
protected:
    static constexpr Size size{520, 420};

    static OnboardingPage page() {
        return {
            .title = "Welcome",
            .text = "What it is.",
            .rows = {{"star", "A feature"}, {"moon", "Another one"}},
            .permission =
                PermissionBlock{.line = StatusLine{"", StatusLine::Tone::neutral, "Waiting.",
                                                   StatusLine::Tone::neutral, ""},
                                .button =
                                    OnboardingButton{"Enable", OnboardingAction::enableFeatures},
                                .caption = "Said below"},
            .index = 1,
            .pageCount = 3,
            .buttons = {{"Back", OnboardingAction::back}, {"Continue", OnboardingAction::advance}}};
    }
    void show(const OnboardingPage& page) {
        @autoreleasepool {
            window->present(page);
        }
    }
    [[nodiscard]] static NSWindow* shown() { return paper::windowTitled("Tour"); }
    [[nodiscard]] static NSView* content() { return shown().contentView; }

    TourHeard heard;
    std::unique_ptr<OnboardingPageWindow> window =
        MacProgramWindows{}.makeOnboardingWindow({.title = "Tour", .contentSize = size}, heard);
};

TEST_F(TourWindows, ShowEverythingOfAPageFromTopToBottom) {
    @autoreleasepool {
        show(page());
        double top = 0;
        for (const char* const text :
             {"Welcome", "What it is.", "A feature", "Another one", "Waiting."}) {
            NSTextField* const field = label(content(), text);
            ASSERT_NE(field, nil) << text;
            const double middle = size.height - inWindow(field).midY() + shown().frame.origin.y;
            EXPECT_GT(middle, top) << text;
            top = middle;
        }
        // A status line without a symbol reserves no space for one.
        EXPECT_DOUBLE_EQ(label(content(), "Waiting.").frame.origin.x, 0);
        EXPECT_EQ(label(content(), "Welcome").font.paperSize, 26);
        EXPECT_EQ(viewsOf(content(), NSImageView.class).size(), 2U);
        NSButton* const enable = controlNamed(shown(), "Enable");
        EXPECT_GT(enable.frame.origin.y, label(content(), "Waiting.").superview.frame.origin.y);
        EXPECT_GT(label(content(), "Said below").frame.origin.y, enable.frame.origin.y);
        EXPECT_DOUBLE_EQ(label(content(), "Welcome").frame.origin.x, PageLayout::padding);
        EXPECT_DOUBLE_EQ(label(content(), "Welcome").frame.origin.y, PageLayout::padding);
    }
}

TEST_F(TourWindows, HaveADotAPageWithTheirOwnInTheAccentColour) {
    @autoreleasepool {
        show(page());
        const auto dots = viewsOf(content(), NSBox.class);
        ASSERT_EQ(dots.size(), 3U);
        const auto frames = PageLayout::dots(size, 3);
        for (std::size_t index = 0; index < dots.size(); ++index) {
            NSBox* const dot = static_cast<NSBox*>(static_cast<id>(dots[index]));
            const bool isAccent = dot.fillColor.paperName.paperText == "controlAccent";
            EXPECT_EQ(isAccent, index == 1);
            EXPECT_TRUE(toRect(dot.frame) == frames[index]);
            EXPECT_DOUBLE_EQ(dot.cornerRadius, PageLayout::dotDiameter / 2);
            EXPECT_EQ(dot.borderWidth, 0);
        }
    }
}

TEST_F(TourWindows, TellWhichButtonWasPressedAndGiveReturnToTheLast) {
    @autoreleasepool {
        show(page());
        NSButton* const back = controlNamed(shown(), "Back");
        NSButton* const forward = controlNamed(shown(), "Continue");
        EXPECT_EQ(forward.keyEquivalent.paperText, "\r");
        EXPECT_NE(back.keyEquivalent == nil ? std::string{} : back.keyEquivalent.paperText, "\r");
        EXPECT_GT(forward.frame.origin.x, back.frame.origin.x);
        push(back);
        push(controlNamed(shown(), "Enable"));
        push(forward);
        EXPECT_EQ(heard.acted,
                  (std::vector{OnboardingAction::back, OnboardingAction::enableFeatures,
                               OnboardingAction::advance}));
    }
}

TEST_F(TourWindows, KeepNothingOfAPageThatIsReplaced) {
    show(page());
    const auto targets = [] { return paper::rt::liveObjects("VirelineActionTarget"); };
    const long before = targets();
    OnboardingPage other = page();
    other.title = "Another";
    show(other);
    show(page());
    EXPECT_EQ(targets(), before);
}

TEST_F(TourWindows, ReplaceAPageButNotByItself) {
    @autoreleasepool {
        show(page());
        const id forward = controlNamed(shown(), "Continue");
        show(page());
        EXPECT_EQ(controlNamed(shown(), "Continue"), forward);
        OnboardingPage last;
        last.title = "Last";
        last.buttons = {{"Done", OnboardingAction::finish}};
        show(last);
        EXPECT_EQ(controlNamed(shown(), "Continue"), nil);
        EXPECT_EQ(label(content(), "Welcome"), nil);
        EXPECT_EQ(viewsOf(content(), NSTextField.class).size(), 1U);
        push(controlNamed(shown(), "Done"));
        EXPECT_EQ(heard.acted, std::vector{OnboardingAction::finish});
        last.title = "Nothing to press";
        last.buttons.clear();
        show(last);
        EXPECT_EQ(viewsOf(content(), NSButton.class).size(), 0U);
    }
}

}
}
