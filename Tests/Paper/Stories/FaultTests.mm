// User scenarios on paper in which one call of a port fails: the program keeps running, leaves
// nothing behind, and restores every dock once calls succeed again.
#include "App/HostPlatform.hpp"
#include "App/VirelineApp.hpp"
#include "ProgramTest.hpp"
#include "Support/FaultyPlatform.hpp"

#include <algorithm>
#include <fstream>

namespace vireline {
namespace {

class OneCallFails : public ProgramTest, public testing::WithParamInterface<const char*> {
protected:
    OneCallFails() {
        pinThreeApps();
        paper::setTrusted(true);
        writePreferences(R"({"onboardingCompleted": true, "anchorAppleDock": true,
            "summonOnClick": true, "openOnThisDisplay": true, "fillOnDoubleClick": true})");
        std::ofstream{home() + "/letter.txt"} << "Dear";
    }

    void launchClickAndFill() {
        const NSPoint mail = centre("Mail");
        paper::click(mail);
        paper::launch(makeApp("Mail", 502));
        paper::foreignApps()[502].windows = {{.position = {100, 100}, .size = {400, 300}}};
        paper::advance(2);
        paper::foreignApps()[502].windows[0].position = {100, 100};
        paper::click(centre("Mail"));
        paper::advance(2);
        paper::click(centre("Mail"));
        paper::click(centre("Mail"));
        paper::advance(2);
    }

    void dropAndDrag() {
        paper::beginFileDrag({home() + "/letter.txt"}, NSDragOperationGeneric);
        paper::movePointer(centre("Trash"));
        static_cast<void>(paper::dropFiles());
        paper::beginFileDrag({makeApp("Paint", 0).path}, NSDragOperationGeneric);
        paper::movePointer(centre("Mail"));
        static_cast<void>(paper::dropFiles());
        paper::advance(1);
        paper::click(centre("Downloads"));
    }

    static void changeSettings() {
        static_cast<void>(paper::chooseStatusItem("Settings…"));
        NSWindow* const settings = paper::windowTitled("Vireline Settings");
        switchOn(controlNamed(settings, "Magnification"), true);
        switchOn(controlNamed(settings, "Launch at login"), true);
        switchOn(controlNamed(settings, "Launch at login"), false);
        push(controlNamed(settings, "Manual list"));
        push(controlNamed(settings, "Mirror Apple's Dock"));
        paper::advance(1);
    }

    static void lookAtEverythingAgain() {
        paper::plug({threeDisplays().front()});
        paper::advance(1);
        paper::plug(threeDisplays());
        [NSDistributedNotificationCenter.defaultCenter paperPost:@"com.apple.dock.prefchanged"
                                                        userInfo:nil];
        paper::advance(12);
    }

    /// Runs all of them; `faults` is configured before the program starts.
    void live(test::Faults& faults) {
        paper::setScript([&] {
            paper::guarded("the test", [&] {
                launchClickAndFill();
                dropAndDrag();
                changeSettings();
                faults.failCall(0);
                lookAtEverythingAgain();
                for (const unsigned display : {2U, 3U})
                    tiles.push_back(tileNames(dockOn(display)));
            });
        });
        @autoreleasepool {
            const auto host = HostPlatform::start();
            test::FaultyPorts ports{(*host)->ports(), faults};
            const Platform platform = ports.ports();
            const auto log = VirelineApp::prepareLogFile(platform.userFolders, platform.fileSystem);
            EXPECT_EQ(VirelineApp::run(platform, log.path()), 0);
        }
    }

    std::vector<std::vector<std::string>> tiles;

private:
    static NSPoint centre(const char* tile) {
        const id found = tileNamed(dockOn(2), tile);
        return found == nil ? NSPoint{-5000, -5000} : centreOf(found);
    }
};

TEST_P(OneCallFails, AndTheProgramGoesOn) {
    test::Faults faults;
    faults.failFirst(GetParam());
    bool hasFailed = false;
    {
        live(faults);
        hasFailed = faults.names().contains(GetParam());
    }
    expectAGoodEnd();
    EXPECT_TRUE(hasFailed) << "the day has no such call";
    ASSERT_EQ(tiles.size(), 2U);
    EXPECT_EQ(tiles[0], tiles[1]);
    for (const char* const app : {"Notes", "Mail", "Music", "Trash"})
        EXPECT_TRUE(std::ranges::any_of(tiles[0], [&](const std::string& name) {
            return name.starts_with(app);
        })) << app;
}

INSTANTIATE_TEST_SUITE_P(
    Calls, OneCallFails,
    testing::Values("FileSystem::exists", "FileSystem::read", "FileSystem::createFolder",
                    "FileSystem::writeAtomically", "FileEvents::watch", "UserFolders::downloads",
                    "UserFolders::trash", "Trash::moveToTrash", "DockPreferences::persistentApps",
                    "ApplicationCatalog::urlForBundleID", "ApplicationCatalog::bundleIdentifier",
                    "Icons::namedImage", "Accessibility::isTrusted", "Accessibility::mainWindow",
                    "Accessibility::position", "Accessibility::setPosition", "Accessibility::size",
                    "Accessibility::setSize", "PointerTaps::create",
                    "LoginItemService::registerItem", "LoginItemService::unregisterItem"),
    [](const auto& call) {
        std::string name = call.param;
        std::erase(name, ':');
        return name;
    });

}
}
