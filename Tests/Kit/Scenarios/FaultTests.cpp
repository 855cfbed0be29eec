/// Makes every fallible call of every port fail once, in each of the user scenarios, and checks
/// that the program keeps running, loses no setting, logs the failure, and recovers fully
/// afterwards.
#include "Kit/Scenarios/FaultScenarios.hpp"
#include "Support/DockFixture.hpp"
#include "Support/FaultWorld.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <string_view>

namespace vireline {
namespace {

using test::FaultWorld;

/// The expected log lines for failed calls that the user may notice.
const std::map<std::string, std::vector<std::string>, std::less<>>& loggedFailures() {
    static const std::map<std::string, std::vector<std::string>, std::less<>> lines{
        {"FileSystem::createFolder", {"preferences save failed: injected failure"}},
        {"FileSystem::writeAtomically", {"preferences save failed: injected failure"}},
        {"Trash::moveToTrash", {"trash failed for letter.txt: injected failure"}},
        {"PointerTaps::create", {"anchor guard: tap creation failed, staying in waiting state"}},
        {"Accessibility::isTrustedWithPrompt",
         {"anchor guard: requested Accessibility permission"}},
        {"LoginItemService::registerItem", {"login item toggle failed: injected failure"}},
        {"LoginItemService::unregisterItem", {"login item toggle failed: injected failure"}},
        {"Accessibility::setPosition",
         {": AXError 5", ": move=5 resize=0 settle=0", ": move=0 resize=0 settle=5"}},
        {"Accessibility::setSize", {": move=0 resize=5 settle=0"}},
        {"Accessibility::bringForward", {"window not shown: injected failure"}},
    };
    return lines;
}

/// The other calls, with the reason why nothing is logged: a retry, or a result that also occurs
/// normally.
const std::map<std::string, std::string_view, std::less<>>& quietFailures() {
    static const std::map<std::string, std::string_view, std::less<>> reasons{
        {"FileSystem::read", "a first start finds no file either"},
        {"FileSystem::exists", "an app that is not there has no tile"},
        {"FileEvents::watch", "the desktop's dock may have no file yet; tried again in a second"},
        {"DockPreferences::persistentApps", "the desktop's dock may have no list"},
        {"UserFolders::downloads", "a user may have none"},
        {"UserFolders::trash", "a user may have none"},
        {"ApplicationCatalog::urlForBundleID", "the app may not be installed"},
        {"ApplicationCatalog::bundleIdentifier", "the file may be no app"},
        {"Icons::namedImage", "the symbol stands in"},
        {"Accessibility::isTrusted", "the user may not have granted it"},
        {"Accessibility::mainWindow", "the list of windows is asked instead"},
        {"Accessibility::windows", "the app may have none yet; tried again, or the click goes on"},
        {"Accessibility::openWindows", "not every system tells; the menu then lists none"},
        {"Accessibility::position", "tried again, or the click goes on"},
        {"Accessibility::size", "tried again, or the click goes on"},
    };
    return reasons;
}

/// The result of a scenario with one failed call, or without any.
struct Trial {
    int calls = 0;
    std::set<std::string> callsMade;
    std::string failed;
    std::vector<std::string> log;
    FaultWorld::Disk atTheEnd;
    std::optional<std::string> textAtQuit;
    /// After everything has been refreshed and one more setting has changed.
    FaultWorld::Disk diskAfterwards;
    FaultWorld::Snapshot afterwards;
    FaultWorld::Snapshot afterARestart;
};

void refreshEverything(FaultWorld& world) {
    world.platform.fake.dockPreferences.announceChange();
    world.announceScreens();
    const auto visitor = test::FakePlatform::instanceOf(world.visitor);
    world.platform.fake.running.launch(visitor);
    world.platform.fake.running.quit(world.visitor.bundleID);
    world.pass(3);
    world.set(SettingsField::autoHide, true);
    world.set(SettingsField::autoHide, false);
    world.pass(1);
}

Trial tryOut(const test::FaultScenario& scenario, int failingCall) {
    Trial trial;
    testing::internal::CaptureStdout();
    {
        FaultWorld world;
        test::Faults& faults = world.platform.faults;
        faults.failCall(failingCall);
        scenario.run(world);
        trial.calls = faults.calls();
        trial.callsMade.insert(faults.names().begin(), faults.names().end());
        trial.failed = faults.failed().value_or("nothing");
        trial.log = world.log.messages();
        trial.atTheEnd = world.disk();
        trial.textAtQuit = world.textAtQuit;

        faults.failCall(0);
        refreshEverything(world);
        trial.diskAfterwards = world.disk();
        trial.afterwards = world.look();
        world.quit();
        world.start();
        trial.afterARestart = world.look();
    }
    testing::internal::GetCapturedStdout();
    return trial;
}

/// The file must contain the last successful save, or else what it contained before the program
/// started.
void expectWhole(const FaultWorld::Disk& disk) {
    EXPECT_EQ(disk.text, disk.lastSave.value_or(disk.textBefore));
    EXPECT_EQ(disk.settings.has_value(), !disk.text.empty()) << disk.text;
}

void expectTheLogToSayWhatFailed(const Trial& trial) {
    if (quietFailures().contains(trial.failed))
        return;
    const auto expected = loggedFailures().find(trial.failed);
    ASSERT_NE(expected, loggedFailures().end()) << "no expected log lines are listed for this call";
    EXPECT_TRUE(std::ranges::any_of(trial.log, [&](const std::string& line) {
        return std::ranges::any_of(expected->second,
                                   [&](const auto& end) { return line.ends_with(end); });
    })) << testing::PrintToString(trial.log);
}

/// Whether the failure may legitimately change the final state of the scenario.
bool mayEndDifferently(const test::FaultScenario& scenario, const Trial& trial,
                       const Trial& baseline) {
    // The defaults are in force until the user's next change replaces the file.
    if (trial.failed == "FileSystem::read")
        return true;
    // The program quit before another save could make up for the failed one.
    const bool isSave =
        trial.failed == "FileSystem::createFolder" || trial.failed == "FileSystem::writeAtomically";
    if (isSave && trial.textAtQuit != baseline.textAtQuit)
        return true;
    // A tile that was temporarily missing cannot be dragged, and is not added to the user's list.
    constexpr std::array<std::string_view, 3> shapesTheTiles{
        "DockPreferences::persistentApps", "FileSystem::exists",
        "ApplicationCatalog::bundleIdentifier"};
    return scenario.editsTheList && std::ranges::count(shapesTheTiles, trial.failed) > 0;
}

class EveryCallFailsOnce : public testing::TestWithParam<test::FaultScenario> {};

TEST_P(EveryCallFailsOnce, AndTheProgramContinuesLosesNothingAndLogsIt) {
    const test::FaultScenario& scenario = GetParam();
    const Trial baseline = tryOut(scenario, 0);

    for (int call = 1; call <= baseline.calls; ++call) {
        const Trial trial = tryOut(scenario, call);

        SCOPED_TRACE("call " + std::to_string(call) + ", " + trial.failed);
        expectTheLogToSayWhatFailed(trial);
        expectWhole(trial.atTheEnd);
        expectWhole(trial.diskAfterwards);
        EXPECT_EQ(trial.afterARestart, trial.afterwards);
        if (!mayEndDifferently(scenario, trial, baseline)) {
            EXPECT_EQ(trial.diskAfterwards.text, baseline.diskAfterwards.text);
            EXPECT_EQ(trial.afterwards, baseline.afterwards);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, EveryCallFailsOnce,
                         testing::ValuesIn(test::faultScenarios().begin(),
                                           test::faultScenarios().end()),
                         [](const auto& instance) { return std::string{instance.param.name}; });

TEST(FallibleCalls, AreAllMadeInSomeCourse) {
    std::set<std::string> made;
    for (const test::FaultScenario& scenario : test::faultScenarios()) {
        const Trial trial = tryOut(scenario, 0);
        made.insert(trial.callsMade.begin(), trial.callsMade.end());
    }

    std::set<std::string> expected;
    for (const auto& [call, lines] : loggedFailures())
        expected.insert(call);
    for (const auto& [call, reason] : quietFailures())
        expected.insert(call);
    EXPECT_EQ(made, expected);
}

}
}
