// Differences between versions of the system, and effects of the system on files and pipes.
#include "ProgramTest.hpp"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>

namespace vireline {
namespace {

namespace fs = std::filesystem;

template <class Visit>
void visitAll(NSView* view, const Visit& visit) {
    visit(view);
    for (NSView* child in view.subviews)
        visitAll(child, visit);
}

std::size_t viewsOf(NSWindow* window, NSString* className) {
    const Class wanted = NSClassFromString(className);
    std::size_t count = 0;
    visitAll(window.contentView, [&](NSView* view) {
        if (wanted != nil && [view isKindOfClass:wanted])
            ++count;
    });
    return count;
}

double topmostView(NSWindow* dock) {
    double top = 1e9;
    for (NSView* node in [dock.contentView.subviews.firstObject subviews])
        top = std::min(top, node.frame.origin.y);
    return top;
}

/// The number of display links that are not paused.
std::size_t ticking() {
    return static_cast<std::size_t>(std::ranges::count_if(
        paper::displayLinks(), [](CADisplayLink* link) { return !link.paused; }));
}

/// Views have display links since version 14, and glass exists since 26.
class Versions : public ProgramTest, public testing::WithParamInterface<int> {
protected:
    Versions() {
        pinThreeApps();
        paper::setSystemVersion(GetParam());
    }
};

TEST_P(Versions, SlideDocksInFrameByFrameAndTickNoLongerThanThat) {
    writePreferences(R"({"onboardingCompleted": true, "autoHide": true})");
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        std::set<double> places;
        std::size_t mostTimers = 0;
        paper::movePointer({2400, 1});
        for (int frame = 0; frame < 20; ++frame) {
            paper::advance(1.0 / 60);
            places.insert(topmostView(dock));
            mostTimers = std::max(mostTimers, paper::pendingTimers());
        }
        EXPECT_GE(places.size(), 6U) << testing::PrintToString(places);
        paper::advance(2);
        EXPECT_EQ(mostTimers > paper::pendingTimers(), GetParam() < 14);
        paper::movePointer({2400, 600});
        paper::advance(3);
        EXPECT_EQ(ticking(), 0U);
    });
}

TEST_P(Versions, DrawTheStripOnWhatTheyHave) {
    runProgram([] {
        NSWindow* const dock = dockOn(2);
        const bool hasGlass = GetParam() >= 26;
        EXPECT_EQ(viewsOf(dock, @"NSGlassEffectView") > 0, hasGlass);
        EXPECT_EQ(viewsOf(dock, @"NSVisualEffectView") > 0, !hasGlass);
        visitAll(dock.contentView, [](NSView* view) {
            if (![view isKindOfClass:NSVisualEffectView.class])
                return;
            NSVisualEffectView* const material = static_cast<NSVisualEffectView*>(view);
            // Set explicitly, because the window is never key.
            EXPECT_EQ(material.state, NSVisualEffectStateActive);
            EXPECT_NE(material.maskImage, nil);
        });
    });
}

TEST_P(Versions, FollowTheirDisplays) {
    runProgram([] {
        auto displays = threeDisplays();
        displays.pop_back();
        paper::plug(displays);
        paper::advance(1);
        EXPECT_EQ(dockOn(3), nil);
        paper::plug(threeDisplays());
        paper::advance(1);
        EXPECT_NE(dockOn(3), nil);
    });
}

INSTANTIATE_TEST_SUITE_P(All, Versions, testing::Values(13, 14, 26));

class Surroundings : public ProgramTest {
protected:
    Surroundings() { pinThreeApps(); }

    static void switchAutoHideOn() {
        EXPECT_TRUE(paper::chooseStatusItem("Settings…"));
        NSWindow* const settings = paper::windowTitled("Vireline Settings");
        switchOn(controlNamed(settings, "Automatically hide and show the dock"), true);
        paper::advance(1);
    }
};

TEST_F(Surroundings, MayCloseThePipeThatTheLogGoesTo) {
    runProgram([] {
        ::raise(SIGPIPE);
        EXPECT_NE(dockOn(2), nil);
    });
}

TEST_F(Surroundings, MayReplaceTheFileOfTheSystemsDockOverAndOver) {
    const fs::path list = home() + "/Library/Preferences/com.apple.dock.plist";
    fs::create_directories(list.parent_path());
    std::ofstream{list} << "text";
    runProgram([&] {
        for (int round = 0; round < 3; ++round) {
            EXPECT_EQ(paper::fileWatches(), 1U);
            // The watches of the files before are gone, and what stood for them.
            EXPECT_EQ(paper::rt::liveObjects("PaperSource"), 1);
            std::ofstream{list.string() + ".new"} << "another text";
            fs::rename(list.string() + ".new", list);
            paper::advance(2);
        }
    });
}

TEST_F(Surroundings, MayKeepTheSettingsElsewhereBehindALink) {
    const fs::path file = supportFolder() + "/preferences.json";
    const fs::path kept = home() + "/dotfiles/vireline.json";
    fs::create_directories(kept.parent_path());
    fs::rename(file, kept);
    fs::create_symlink("../../../dotfiles/vireline.json", file);
    runProgram([&] {
        switchAutoHideOn();
        EXPECT_TRUE(fs::is_symlink(file));
        EXPECT_FALSE(fs::is_symlink(kept));
        std::ifstream in{kept};
        const std::string content{std::istreambuf_iterator<char>{in}, {}};
        EXPECT_NE(content.find("\"autoHide\": true"), std::string::npos) << content;
    });
}

TEST_F(Surroundings, MayHaveALinkThatLeadsInACircle) {
    const fs::path file = supportFolder() + "/preferences.json";
    fs::remove(file);
    fs::create_symlink("preferences.json", file);
    runProgram([&] {
        switchAutoHideOn();
        EXPECT_FALSE(fs::is_symlink(file));
        EXPECT_NE(preferences().find("\"autoHide\": true"), std::string::npos);
    });
}

TEST_F(Surroundings, MayHaveALinkToWhereNoFileCanBe) {
    const fs::path file = supportFolder() + "/preferences.json";
    fs::remove(file);
    fs::create_symlink(home() + "/none/file", file);
    runProgram([&] {
        switchAutoHideOn();
        EXPECT_FALSE(fs::is_symlink(file));
        EXPECT_NE(preferences().find("\"autoHide\": true"), std::string::npos);
    });
}

}
}
