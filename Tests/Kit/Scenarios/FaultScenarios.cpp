#include "Kit/Scenarios/FaultScenarios.hpp"

#include "Support/DockFixture.hpp"

#include <array>
#include <utility>

namespace vireline::test {
namespace {

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
    const auto instance = FakePlatform::instanceOf(world.mail);
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
    window.title = "Inbox";
    world.chooseFromMenu("Mail", "Inbox");
    world.chooseFromMenu("Mail", "Quit");
    world.platform.fake.running.quit(world.mail.bundleID);
}

/// Summons an app that does not tell which of its windows is the main one.
void summoningAnyWindow(FaultWorld& world) {
    world.store(withWindowFeatures());
    world.platform.fake.accessibility.notElements = {"AXMainWindow"};
    world.start();
    const auto instance = FakePlatform::instanceOf(world.mail);
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
    screens.push_back(screenAt(3, {-800, 0, 800, 600}));
    world.announceScreens();
    screens[1].frame.y = 200;
    screens.pop_back();
    world.announceScreens();
    screens.pop_back();
    world.announceScreens();
    screens.push_back(screenAt(FaultWorld::display, {1920, 0, 1920, 1080}));
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

constexpr std::array scenarios{
    FaultScenario{"FirstStart", firstStart},
    FaultScenario{"Mirroring", mirroring},
    FaultScenario{"WithoutAnythingToMirror", withoutAnythingToMirror},
    FaultScenario{"EditingTheManualList", editingTheManualList, true},
    FaultScenario{"DraggingWhileMirroring", draggingWhileMirroring, true},
    FaultScenario{"Dropping", dropping, true},
    FaultScenario{"LaunchingAndSummoning", launchingAndSummoning},
    FaultScenario{"SummoningAnyWindow", summoningAnyWindow},
    FaultScenario{"WaitingForThePermission", waitingForThePermission},
    FaultScenario{"ChangingEverySetting", changingEverySetting, true},
    FaultScenario{"ChangingDisplays", changingDisplays},
    FaultScenario{"Waking", waking},
    FaultScenario{"QuittingAndStartingAgain", quittingAndStartingAgain, true},
    FaultScenario{"SwitchingTheLoginItem", switchingTheLoginItem},
};

}

std::span<const FaultScenario> faultScenarios() {
    return scenarios;
}

}
