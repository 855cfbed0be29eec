#include "Sources/RunningAppsMonitor.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/Recorder.hpp"

#include <gtest/gtest.h>

#include <memory>

namespace vireline {
namespace {

using test::FakePlatform;
using test::Recorder;
using Apps = std::vector<AppRef>;
using Names = std::vector<std::string>;

struct RunningAppsMonitorTest : testing::Test {
    FakePlatform platform;
    AppRef mail = platform.install("com.apple.mail", "Mail");
    AppRef notes = platform.install("com.apple.Notes", "Notes");
    std::unique_ptr<RunningAppsMonitor> monitor =
        std::make_unique<RunningAppsMonitor>(platform.running);
    Recorder<Apps> lists{monitor->onChange};
    Recorder<std::string> launching{monitor->onLaunching};
    Recorder<std::string> settled{monitor->onSettled};
};

// Behaviour: running-apps-monitor-1
TEST_F(RunningAppsMonitorTest, DeliversAnEmptyListOnceWhenNoOrdinaryAppRuns) {
    RunningApplication accessory = FakePlatform::instanceOf(notes);
    accessory.activationPolicy = ActivationPolicy::accessory;
    RunningApplication background = FakePlatform::instanceOf(mail);
    background.activationPolicy = ActivationPolicy::prohibited;
    platform.running.apps = {accessory, background};

    monitor->start();

    EXPECT_EQ(monitor->current(), Apps{});
    EXPECT_EQ(lists.values, std::vector<Apps>{{}});
}

TEST_F(RunningAppsMonitorTest, ListsOrdinaryAppsInTheSystemsOrderWithTheirDuplicates) {
    RunningApplication accessory = FakePlatform::instanceOf(notes);
    accessory.activationPolicy = ActivationPolicy::accessory;
    RunningApplication background = FakePlatform::instanceOf(notes);
    background.activationPolicy = ActivationPolicy::prohibited;
    platform.running.apps = {FakePlatform::instanceOf(notes, 1), accessory,
                             FakePlatform::instanceOf(mail, 2), background,
                             FakePlatform::instanceOf(notes, 3)};

    EXPECT_EQ(monitor->current(), (Apps{notes, mail, notes}));
}

// Behaviour: running-apps-monitor-2
TEST_F(RunningAppsMonitorTest, LeavesOutAnAppWithoutIdentifierOrLocation) {
    RunningApplication unidentified = FakePlatform::instanceOf(mail);
    unidentified.bundleID.reset();
    RunningApplication unlocated = FakePlatform::instanceOf(mail);
    unlocated.bundleURL.reset();
    platform.running.apps = {unidentified, unlocated, FakePlatform::instanceOf(notes)};

    EXPECT_EQ(monitor->current(), Apps{notes});
}

// Behaviour: running-apps-monitor-3
TEST_F(RunningAppsMonitorTest, NamesANamelessAppByItsIdentifier) {
    RunningApplication nameless = FakePlatform::instanceOf(mail);
    nameless.localizedName.reset();
    platform.running.apps = {nameless};

    EXPECT_EQ(monitor->current(), (Apps{{mail.bundleID, mail.bundleID, mail.url}}));
}

TEST_F(RunningAppsMonitorTest, ReportsALaunchAndThatItSettled) {
    monitor->start();

    platform.running.announceWillLaunch(FakePlatform::instanceOf(mail));
    EXPECT_EQ(launching.values, Names{mail.bundleID});
    EXPECT_EQ(lists.count(), 1) << "a launch that has only begun changes no list";

    platform.running.apps.push_back(FakePlatform::instanceOf(mail));
    platform.running.announceDidLaunch(FakePlatform::instanceOf(mail));
    EXPECT_EQ(settled.values, Names{mail.bundleID});
    EXPECT_EQ(lists.values, (std::vector<Apps>{{}, {mail}}));
}

TEST_F(RunningAppsMonitorTest, ReportsATermination) {
    platform.running.apps = {FakePlatform::instanceOf(mail)};
    monitor->start();

    platform.running.quit(mail.bundleID);

    EXPECT_EQ(settled.values, Names{mail.bundleID});
    EXPECT_EQ(lists.values, (std::vector<Apps>{{mail}, {}}));
}

TEST_F(RunningAppsMonitorTest, SettlesAnAppBeforeItDeliversTheList) {
    monitor->start();
    std::vector<std::string> order;
    monitor->onSettled = [&](const std::string&) { order.emplace_back("settled"); };
    monitor->onChange = [&](const Apps&) { order.emplace_back("list"); };

    platform.running.announceDidLaunch(FakePlatform::instanceOf(mail));

    EXPECT_EQ(order, (Names{"settled", "list"}));
}

// Behaviour: running-apps-monitor-4
TEST_F(RunningAppsMonitorTest, DeliversTheListWhenATerminationDoesNotSayWhose) {
    monitor->start();
    RunningApplication unidentified = FakePlatform::instanceOf(mail);
    unidentified.bundleID.reset();

    platform.running.announceDidTerminate(std::nullopt);
    platform.running.announceDidTerminate(unidentified);

    EXPECT_EQ(settled.count(), 0);
    EXPECT_EQ(lists.count(), 3);
}

TEST_F(RunningAppsMonitorTest, IgnoresALaunchWithoutAnApp) {
    monitor->start();

    platform.running.announceWillLaunch(std::nullopt);

    EXPECT_EQ(launching.count(), 0);
}

TEST_F(RunningAppsMonitorTest, ReportsTheLaunchOfAnAccessoryThatItDoesNotList) {
    monitor->start();
    RunningApplication accessory = FakePlatform::instanceOf(mail);
    accessory.activationPolicy = ActivationPolicy::accessory;

    platform.running.launch(accessory);

    EXPECT_EQ(launching.values, Names{mail.bundleID});
    EXPECT_EQ(settled.values, Names{mail.bundleID});
    EXPECT_EQ(lists.last(), Apps{});
}

TEST_F(RunningAppsMonitorTest, ManagesWithoutListeners) {
    RunningAppsMonitor unheard{platform.running};

    unheard.start();
    platform.running.launch(FakePlatform::instanceOf(mail));

    EXPECT_EQ(unheard.current(), Apps{mail});
}

TEST_F(RunningAppsMonitorTest, IsNotCalledOnceItIsGone) {
    monitor->start();

    monitor.reset();
    platform.running.launch(FakePlatform::instanceOf(mail));

    EXPECT_EQ(lists.count(), 1);
    EXPECT_EQ(launching.count() + settled.count(), 0);
}

// Behaviour: running-apps-monitor-5
TEST(TemporaryPinnedSource, IsEmptyWhenNoneOfTheWellKnownAppsIsInstalled) {
    FakePlatform platform;
    platform.install("com.apple.Chess", "Chess");

    EXPECT_EQ(TemporaryPinnedSource::load(platform.catalog), Apps{});
}

TEST(TemporaryPinnedSource, ListsTheInstalledOnesInTheOrderOfTheTable) {
    FakePlatform platform;
    const AppRef notes = platform.install("com.apple.Notes", "Notes");
    const AppRef finder = platform.install("com.apple.finder", "Finder");
    const AppRef chrome = platform.install("com.google.Chrome", "Chrome");

    EXPECT_EQ(TemporaryPinnedSource::load(platform.catalog), (Apps{finder, chrome, notes}));
}

TEST(TemporaryPinnedSource, ListsThoseThatThePlatformKnows) {
    FakePlatform platform;
    platform.catalog.wellKnown = {"org.example.Files"};
    const AppRef files = platform.install("org.example.Files", "Files");
    platform.install("com.apple.mail", "Mail");

    EXPECT_EQ(TemporaryPinnedSource::load(platform.catalog), Apps{files});
}

}
}
