#include "Sources/MirrorSource.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/Recorder.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vireline {
namespace {

using test::FakePlatform;
using test::LoggedLines;
using test::Recorder;
using Apps = std::vector<AppRef>;
using Lines = std::vector<std::string>;

struct MirrorSourceTest : testing::Test {
    MirrorSourceTest() {
        platform.fileSystem.put(plist);
        platform.pin({mail});
    }

    LoggedLines log;
    FakePlatform platform;
    FileURL plist = FileURL::fromPath("/Users/ada/Library/Preferences/com.apple.dock.plist");
    AppRef finder = platform.install("com.apple.finder", "Finder");
    AppRef mail = platform.install("com.apple.mail", "Mail");
    std::unique_ptr<MirrorSource> source = std::make_unique<MirrorSource>(platform.ports());
    Recorder<Apps> readings{source->onChange};
};

TEST_F(MirrorSourceTest, ReadsAtOnceWhenItStarts) {
    source->start();

    EXPECT_EQ(readings.values, (std::vector<Apps>{Apps{finder, mail}}));
    EXPECT_EQ(log.messages(), Lines{"mirror: 2 pinned apps from Apple's Dock"});
}

TEST_F(MirrorSourceTest, ReadsAgainAfterAChangeDuringTheFirstReading) {
    source->onChange = [this](const Apps& apps) {
        readings.values.push_back(apps);
        if (readings.count() == 1) {
            platform.pin({});
            platform.fileEvents.fire(plist, test::fileRemoved);
        }
    };
    source->start();

    platform.runLoop.advance(0.3);

    EXPECT_EQ(readings.values, (std::vector<Apps>{{finder, mail}, {finder}}));
}

// Behaviour: mirror-source-1
TEST_F(MirrorSourceTest, ReadsOnceAfterABurstOfSignals) {
    source->start();

    platform.dockPreferences.announceChange();
    platform.runLoop.advance(0.1);
    platform.fileEvents.fire(plist, test::contentChanged);
    platform.runLoop.advance(0.1);
    platform.dockPreferences.announceChange();
    platform.runLoop.advance(0.299);
    EXPECT_EQ(readings.count(), 1);
    platform.runLoop.advance(0.001);
    EXPECT_EQ(readings.count(), 2);

    platform.runLoop.advance(10);
    EXPECT_EQ(readings.count(), 2);
}

// Behaviour: mirror-source-2
TEST_F(MirrorSourceTest, FollowsAFileReplacedByRename) {
    source->start();

    platform.fileEvents.fire(plist, test::fileRemoved);
    platform.runLoop.advance(0.3);
    EXPECT_EQ(readings.count(), 2);

    platform.fileEvents.fire(plist, test::contentChanged);
    platform.runLoop.advance(0.7);
    EXPECT_EQ(readings.count(), 2) << "the new file is not watched before a second has passed";

    platform.fileEvents.fire(plist, test::contentChanged);
    platform.runLoop.advance(0.3);
    EXPECT_EQ(readings.count(), 3);
}

// Behaviour: mirror-source-3
TEST_F(MirrorSourceTest, ReadsOnceWhenTheFileIsDeletedAndResumesInSilence) {
    source->start();

    platform.fileSystem.remove(plist);
    platform.fileEvents.fire(plist, test::fileRemoved);
    platform.runLoop.advance(3.5);
    EXPECT_EQ(readings.count(), 2);
    EXPECT_EQ(platform.fileEvents.attempts.size(), 4U);

    platform.fileSystem.put(plist);
    platform.runLoop.advance(10);
    EXPECT_EQ(readings.count(), 2);
    EXPECT_EQ(platform.fileEvents.attempts.size(), 5U);

    platform.fileEvents.fire(plist, test::contentChanged);
    platform.runLoop.advance(0.3);
    EXPECT_EQ(readings.count(), 3);
}

// Behaviour: mirror-source-4
TEST_F(MirrorSourceTest, TakesAMissingIdentifierFromTheBundleOrDropsTheEntry) {
    const auto anonymous = FileURL::fromPath("/Applications/Anonymous.app");
    platform.fileSystem.putFolder(anonymous);

    const auto apps = source->resolve(std::vector<ParsedDockEntry>{
        {"Post", std::nullopt, mail.url}, {"Anonymous", std::nullopt, anonymous}});

    EXPECT_EQ(apps, (Apps{finder, {"com.apple.mail", "Post", mail.url}}));
}

// Behaviour: mirror-source-5
TEST_F(MirrorSourceTest, DropsAnAppThatWasDeleted) {
    platform.fileSystem.remove(mail.url);

    source->start();

    EXPECT_EQ(readings.last(), Apps{finder});
}

// Behaviour: mirror-source-6
TEST_F(MirrorSourceTest, LeavesAListedFinderInItsPlace) {
    platform.pin({mail, finder});

    source->start();

    EXPECT_EQ(readings.last(), (Apps{mail, finder}));
}

TEST_F(MirrorSourceTest, NamesAnUnlabelledEntryAsTheCatalogDoes) {
    const auto apps =
        source->resolve(std::vector<ParsedDockEntry>{{std::nullopt, "com.example.mail", mail.url}});

    EXPECT_EQ(apps, (Apps{finder, {"com.example.mail", "Mail", mail.url}}));
}

TEST_F(MirrorSourceTest, PassesDuplicatesOn) {
    platform.pin({mail, mail});

    source->start();

    EXPECT_EQ(readings.last(), (Apps{finder, mail, mail}));
}

TEST_F(MirrorSourceTest, DeliversTheFinderAloneWithoutPreferences) {
    platform.dockPreferences.tiles.reset();

    source->start();

    EXPECT_EQ(readings.last(), Apps{finder});
    EXPECT_EQ(log.messages(), Lines{"mirror: 1 pinned apps from Apple's Dock"});
}

TEST_F(MirrorSourceTest, DeliversNothingWithoutPreferencesAndFinder) {
    platform.dockPreferences.tiles.reset();
    platform.catalog.installed.clear();

    source->start();

    EXPECT_EQ(readings.last(), Apps{});
    EXPECT_EQ(log.messages(), Lines{"mirror: 0 pinned apps from Apple's Dock"});
}

TEST_F(MirrorSourceTest, PutsThePlatformsOwnFileManagerInFront) {
    platform.catalog.manager = {"org.example.Files", "Files"};
    const AppRef files = platform.install("org.example.Files", "Files");

    source->start();

    EXPECT_EQ(readings.last(), (Apps{files, mail}));
}

TEST_F(MirrorSourceTest, DeliversAReadingThatEqualsTheOneBefore) {
    source->start();

    source->emit();

    EXPECT_EQ(readings.values, (std::vector<Apps>{{finder, mail}, {finder, mail}}));
}

TEST_F(MirrorSourceTest, NeverPollsWhereThePlatformWaitsForTheFile) {
    platform.fileEvents.waitsForMissingFiles = true;
    platform.fileSystem.remove(plist);
    source->start();

    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
    platform.dockPreferences.announceChange();
    platform.runLoop.advance(10);

    EXPECT_EQ(readings.count(), 2);
    EXPECT_EQ(platform.runLoop.pendingTimers(), 0);
}

TEST_F(MirrorSourceTest, EndsWithoutAnotherReading) {
    source->start();
    platform.dockPreferences.announceChange();

    source.reset();
    platform.runLoop.advance(10);
    platform.dockPreferences.announceChange();
    platform.fileEvents.fire(plist, test::contentChanged);
    platform.runLoop.advance(10);

    EXPECT_EQ(readings.count(), 1);
}

}
}
