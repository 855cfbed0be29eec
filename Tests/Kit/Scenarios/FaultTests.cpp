/// Makes every fallible call of every port fail once, in each of these user scenarios, and checks
/// that the program keeps running, loses no setting, logs the failure, and recovers fully
/// afterwards.
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

Settings afterTheTour() {
    Settings settings;
    settings.onboardingCompleted = true;
    return settings;
}

/// Enables everything that moves other programs' windows.
Settings withWindowFeatures() {
    Settings settings = afterTheTour();
    settings.openOnThisDisplay = true;
    settings.summonOnClick = true;
    settings.fillOnDoubleClick = true;
    settings.anchorAppleDock = true;
    return settings;
}

Settings manualList(const FaultWorld& world) {
    Settings settings = afterTheTour();
    settings.sourceMode = SourceMode::manual;
    for (const AppRef& app : {world.mail, world.notes, world.finder})
        settings.manualApps.push_back({app.bundleID, app.name, app.url.path()});
    return settings;
}

void firstStart(FaultWorld& world) {
    world.start();
    world.act(OnboardingAction::advance);
    world.act(OnboardingAction::enableFeatures);
    world.act(OnboardingAction::advance);
    world.act(OnboardingAction::finish);
}

void mirroring(FaultWorld& world) {
    world.store(afterTheTour());
    world.start();
    world.platform.fake.pin({world.mail, world.notes});
    world.platform.fake.dockPreferences.announceChange();
    world.pass(0.4);
    world.platform.fake.fileEvents.fire(world.desktopsDock, {.changed = true, .removed = true});
    world.pass(2);
    world.platform.fake.pin({world.notes});
    world.platform.fake.fileEvents.fire(world.desktopsDock, {.changed = true});
    world.pass(1);
}

void editingTheManualList(FaultWorld& world) {
    world.store(manualList(world));
    world.start();
    world.chooseFromMenu("Notes", "Remove from Dock");
    world.dragTile("Finder", "Mail");
    world.dropOn("Mail", world.notes.url);
}

void draggingWhileMirroring(FaultWorld& world) {
    world.store(afterTheTour());
    world.start();
    world.dragTile("Mail", "Finder");
}

void dropping(FaultWorld& world) {
    world.store(afterTheTour());
    world.start();
    const FileURL letter = FileURL::fromPath("/Users/ada/letter.txt");
    world.platform.fake.fileSystem.put(letter);
    world.dropOn("Trash", letter);
    world.dropOn("Mail", world.notes.url);
    world.click("Downloads");
}

void launchingAndSummoning(FaultWorld& world) {
    world.store(withWindowFeatures());
    world.start();
    const auto instance = test::FakePlatform::instanceOf(world.mail);
    world.click("Mail");
    world.platform.fake.running.launch(instance);
    auto& window = world.platform.fake.accessibility.addWindow(instance, {100, 100, 400, 300});
    world.pass(2);
    window.frame.x = 100;
    world.click("Mail");
    world.pass(2);
    window.frame.x = 100;
    world.doubleClick("Mail");
    world.platform.fake.running.bringToFront(world.mail.bundleID);
    world.click("Mail");
    world.chooseFromMenu("Mail", "Quit");
    world.platform.fake.running.quit(world.mail.bundleID);
}

/// Summons an app that does not tell which of its windows is the main one.
void summoningAnyWindow(FaultWorld& world) {
    world.store(withWindowFeatures());
    world.platform.fake.accessibility.notElements = {"AXMainWindow"};
    world.start();
    const auto instance = test::FakePlatform::instanceOf(world.mail);
    world.platform.fake.running.launch(instance);
    world.platform.fake.accessibility.addWindow(instance, {100, 100, 400, 300});
    world.click("Mail");
    world.pass(2);
}

void waitingForThePermission(FaultWorld& world) {
    world.store(withWindowFeatures());
    world.platform.fake.accessibility.trusted = false;
    world.start();
    world.pass(5);
    world.platform.fake.accessibility.trusted = true;
    world.pass(5);
}

void withoutAnythingToMirror(FaultWorld& world) {
    world.store(afterTheTour());
    world.platform.fake.dockPreferences.tiles.reset();
    std::erase(world.platform.fake.catalog.installed, world.finder);
    world.start();
    world.pass(1);
}

void changingEverySetting(FaultWorld& world) {
    world.store(afterTheTour());
    world.start();
    using Field = SettingsField;
    const std::array<std::pair<Field, FormValue>, 11> changes{
        {{Field::position, std::size_t{1}},
         {Field::iconSize, 60.0},
         {Field::magnificationEnabled, true},
         {Field::magnification, 1.8},
         {Field::autoHide, true},
         {Field::anchorAppleDock, true},
         {Field::openOnThisDisplay, true},
         {Field::summonOnClick, true},
         {Field::fillOnDoubleClick, true},
         {Field::launchAtLogin, true},
         {Field::sourceMode, std::size_t{1}}}};
    for (const auto& [field, value] : changes) {
        world.set(field, value);
        world.pass(0.2);
    }
    world.set(Field::launchAtLogin, false);
}

void changingDisplays(FaultWorld& world) {
    world.store(withWindowFeatures());
    world.start();
    auto& screens = world.platform.fake.screens.list;
    screens.push_back(test::screenAt(3, {-800, 0, 800, 600}));
    world.announceScreens();
    screens[1].frame.y = 200;
    screens.pop_back();
    world.announceScreens();
    screens.pop_back();
    world.announceScreens();
    screens.push_back(test::screenAt(FaultWorld::display, {1920, 0, 1920, 1080}));
    world.announceScreens();
}

/// As after sleep: everything is announced at once, and the pointer tap was disabled.
void waking(FaultWorld& world) {
    world.store(withWindowFeatures());
    // So that an hour passes without polling for the permission.
    world.platform.fake.pointerTaps.needsPermission = false;
    world.start();
    world.pass(3600);
    if (world.platform.fake.pointerTaps.isTapped())
        world.platform.fake.pointerTaps.disable(PointerTapEvent::tapDisabledByTimeout);
    for (int i = 0; i < 3; ++i)
        world.platform.fake.screens.announceChange();
    world.platform.fake.dockPreferences.announceChange();
    world.platform.fake.fileEvents.fire(world.desktopsDock, {.changed = true, .removed = true});
    world.platform.fake.running.announceDidLaunch(std::nullopt);
    world.pass(3);
}

void quittingAndStartingAgain(FaultWorld& world) {
    world.store(afterTheTour());
    world.start();
    world.dragTile("Mail", "Finder");
    world.set(SettingsField::iconSize, 40.0);
    world.quit();
    world.pass(1);
    world.start();
    world.set(SettingsField::position, std::size_t{2});
}

void switchingTheLoginItem(FaultWorld& world) {
    world.store(afterTheTour());
    world.start();
    world.platform.fake.statusBar.choose("Launch at Login");
    world.platform.fake.statusBar.choose("Launch at Login");
    world.platform.fake.statusBar.choose("Settings…");
}

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
        {"Accessibility::position", "tried again, or the click goes on"},
        {"Accessibility::size", "tried again, or the click goes on"},
    };
    return reasons;
}

struct Scenario {
    const char* name;
    void (*run)(FaultWorld& world);
    /// The user's actions in it depend on the tiles, and change the list of apps.
    bool editsTheList = false;
};

constexpr std::array scenarios{
    Scenario{"FirstStart", firstStart},
    Scenario{"Mirroring", mirroring},
    Scenario{"WithoutAnythingToMirror", withoutAnythingToMirror},
    Scenario{"EditingTheManualList", editingTheManualList, true},
    Scenario{"DraggingWhileMirroring", draggingWhileMirroring, true},
    Scenario{"Dropping", dropping, true},
    Scenario{"LaunchingAndSummoning", launchingAndSummoning},
    Scenario{"SummoningAnyWindow", summoningAnyWindow},
    Scenario{"WaitingForThePermission", waitingForThePermission},
    Scenario{"ChangingEverySetting", changingEverySetting, true},
    Scenario{"ChangingDisplays", changingDisplays},
    Scenario{"Waking", waking},
    Scenario{"QuittingAndStartingAgain", quittingAndStartingAgain, true},
    Scenario{"SwitchingTheLoginItem", switchingTheLoginItem},
};

std::ostream& operator<<(std::ostream& out, const Scenario& scenario) {
    return out << scenario.name;
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

Trial tryOut(const Scenario& scenario, int failingCall) {
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
bool mayEndDifferently(const Scenario& scenario, const Trial& trial, const Trial& baseline) {
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

class EveryCallFailsOnce : public testing::TestWithParam<Scenario> {};

TEST_P(EveryCallFailsOnce, AndTheProgramGoesOnLosesNothingAndSaysSo) {
    const Scenario& scenario = GetParam();
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

INSTANTIATE_TEST_SUITE_P(Scenarios, EveryCallFailsOnce, testing::ValuesIn(scenarios),
                         [](const auto& instance) { return std::string{instance.param.name}; });

TEST(FallibleCalls, AreAllMadeInSomeCourse) {
    std::set<std::string> made;
    for (const Scenario& scenario : scenarios) {
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
