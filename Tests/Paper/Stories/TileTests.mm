// Tiles: clicks, menus, reordering, and dropped files.
#include "ProgramTest.hpp"

#include <algorithm>
#include <fstream>

namespace vireline {
namespace {

class Tiles : public ProgramTest {
protected:
    Tiles() { pinThreeApps(); }

    static bool wasAsked(const std::string& what) {
        return std::ranges::find(paper::requests(), what) != paper::requests().end();
    }

    [[nodiscard]] std::string pathOf(const std::string& app) const {
        return home() + "/Applications/" + app + ".app";
    }

    static std::vector<std::string> titles(NSMenu* menu) {
        std::vector<std::string> all;
        for (NSMenuItem* item in [menu paperItems])
            all.push_back(item.paperIsSeparator ? "-" : item.title.paperText);
        return all;
    }
};

TEST_F(Tiles, LaunchTheirAppOnAClick) {
    runProgram([this] {
        paper::click(centreOf(tileNamed(dockOn(2), "Mail")));
        paper::advance(1);
        EXPECT_TRUE(wasAsked("launch " + pathOf("Mail")))
            << testing::PrintToString(paper::requests());
    });
    EXPECT_TRUE(logHas("click launch com.example.Mail"));
}

TEST_F(Tiles, HideAnAppThatIsInFront) {
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        paper::launch(mail).active = YES;
        paper::click(centreOf(tileNamed(dockOn(2), "Mail")));
        paper::advance(1);
        EXPECT_TRUE(wasAsked("hide com.example.Mail"));
    });
    EXPECT_TRUE(logHas("click hide com.example.Mail"));
}

TEST_F(Tiles, ArePressedByAssistiveTechnology) {
    runProgram([this] {
        const id tile = tileNamed(dockOn(3), "Notes");
        EXPECT_TRUE([tile accessibilityPerformPress]);
        paper::advance(1);
        EXPECT_TRUE(wasAsked("launch " + pathOf("Notes")));
    });
}

TEST_F(Tiles, OfferQuitOnlyWhileTheirAppRuns) {
    const paper::App mail = makeApp("Mail", 502);
    runProgram([&] {
        std::vector<std::string> whileAway;
        std::vector<std::string> whileRunning;
        paper::answerMenus([&](NSMenu* menu) -> NSMenuItem* {
            whileAway = titles(menu);
            return nil;
        });
        paper::click(centreOf(tileNamed(dockOn(2), "Mail")), true);
        paper::advance(1);
        paper::launch(mail);
        paper::answerMenus([&](NSMenu* menu) -> NSMenuItem* {
            whileRunning = titles(menu);
            return paper::itemTitled(menu, "Quit");
        });
        paper::click(centreOf(tileNamed(dockOn(2), "Mail")), true);
        paper::advance(1);
        EXPECT_EQ(std::ranges::count(whileAway, "Quit"), 0);
        EXPECT_EQ(std::ranges::count(whileRunning, "Quit"), 1);
        EXPECT_TRUE(wasAsked("terminate com.example.Mail"));
    });
}

TEST_F(Tiles, SurviveTheirDisplayWhileAMenuIsOpen) {
    runProgram([] {
        paper::answerMenus([](NSMenu* menu) -> NSMenuItem* {
            auto displays = threeDisplays();
            displays.pop_back();
            paper::plug(displays);
            paper::advance(1);
            return paper::itemTitled(menu, "Open");
        });
        paper::click(centreOf(tileNamed(dockOn(3), "Mail")), true);
        paper::advance(1);
        EXPECT_EQ(dockOn(3), nil);
    });
}

TEST_F(Tiles, AreReorderedByDragging) {
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const NSPoint from = centreOf(tileNamed(dock, "Notes"));
        const NSPoint to = centreOf(tileNamed(dock, "Music"));
        paper::movePointer(from);
        paper::press();
        for (int step = 1; step <= 10; ++step) {
            paper::movePointer({from.x + (to.x + 20 - from.x) * step / 10, from.y});
            paper::advance(0.05);
        }
        paper::release();
        paper::advance(1);
        const auto names = tileNames(dock);
        ASSERT_GE(names.size(), 3U);
        EXPECT_TRUE(names[2].starts_with("Notes")) << testing::PrintToString(names);
    });
    EXPECT_TRUE(logHas("manual move com.example.Notes to 2")) << testing::PrintToString(log());
}

TEST_F(Tiles, StayWhereTheyAreWhenEscapeCancelsADrag) {
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const NSPoint from = centreOf(tileNamed(dock, "Notes"));
        paper::movePointer(from);
        paper::press();
        paper::movePointer({from.x + 60, from.y});
        paper::advance(0.1);
        paper::setEscapeDown(true);
        paper::advance(0.1);
        paper::setEscapeDown(false);
        paper::release();
        paper::advance(1);
        EXPECT_TRUE(tileNames(dock).front().starts_with("Notes"));
    });
    EXPECT_FALSE(logHas("manual move"));
}

TEST_F(Tiles, AreAddedByDroppingAnApp) {
    const paper::App paint = makeApp("Paint", 600);
    runProgram([&] {
        NSWindow* const dock = dockOn(2);
        paper::beginFileDrag({paint.path}, NSDragOperationCopy | NSDragOperationGeneric);
        paper::movePointer(centreOf(tileNamed(dock, "Mail")));
        EXPECT_TRUE(paper::dropFiles());
        paper::advance(1);
        EXPECT_NE(tileNamed(dock, "Paint"), nil);
    });
    EXPECT_TRUE(logHas("manual add com.example.Paint"));
}

TEST_F(Tiles, OfTheTrashTakeFiles) {
    const std::string file = home() + "/letter.txt";
    std::ofstream{file} << "Dear";
    runProgram([&] {
        NSWindow* const dock = dockOn(2);
        paper::beginFileDrag({file}, NSDragOperationGeneric);
        paper::movePointer(centreOf(tileNamed(dock, "Trash")));
        EXPECT_TRUE(paper::dropFiles());
        paper::advance(1);
    });
    EXPECT_TRUE(std::ifstream{home() + "/.Trash/letter.txt"}.good());
    EXPECT_TRUE(logHas("trashed letter.txt"));
}

TEST_F(Tiles, OfTheTrashHoldNothingUpWhileItIsSlow) {
    const std::string file = home() + "/letter.txt";
    std::ofstream{file} << "Dear";
    runProgram([&] {
        NSWindow* const dock = dockOn(2);
        paper::holdBackground(true);
        paper::beginFileDrag({file}, NSDragOperationGeneric);
        paper::movePointer(centreOf(tileNamed(dock, "Trash")));
        EXPECT_TRUE(paper::dropFiles());
        paper::advance(0.5);
        EXPECT_TRUE(std::ifstream{file}.good());
        paper::holdBackground(false);
        paper::advance(0.5);
        EXPECT_FALSE(std::ifstream{file}.good());
    });
    EXPECT_TRUE(logHas("trashed letter.txt"));
}

TEST_F(Tiles, GrowUnderThePointerAndShrinkAgain) {
    writePreferences(R"({"onboardingCompleted": true, "magnificationEnabled": true})");
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const id tile = tileNamed(dock, "Mail");
        const double resting = [tile accessibilityFrame].size.width;
        paper::movePointer(centreOf(tile));
        paper::advance(1);
        EXPECT_GT([tile accessibilityFrame].size.width, resting + 5);
        paper::movePointer({2000, 700});
        paper::advance(1);
        EXPECT_DOUBLE_EQ([tile accessibilityFrame].size.width, resting);
        paper::display();
    });
}

}
}
