#include "Kit/Sources/AppSourceResolverTest.hpp"

namespace vireline {
namespace {

using test::AppSourceResolverTest;
using test::stored;
using Apps = std::vector<AppRef>;
using Lines = std::vector<std::string>;

TEST_F(AppSourceResolverTest, PassesTheMirroredListOn) {
    platform.pin({mail, notes});

    resolver.start();

    EXPECT_EQ(lists.values, (std::vector<Apps>{Apps{finder, mail, notes}}));
}

// Behaviour: app-source-resolver-1
TEST_F(AppSourceResolverTest, FallsBackToTheInstalledWellKnownAppsWhenThereIsNothingToMirror) {
    platform.catalog.installed = {chess, notes, mail};

    resolver.start();

    EXPECT_EQ(lists.last(), (Apps{mail, notes}));
    EXPECT_EQ(log.messages(), (Lines{"mirror: 0 pinned apps from Apple's Dock",
                                     "mirror empty, using fallback list"}));
}

TEST_F(AppSourceResolverTest, LogsTheFallbackAtEveryEmit) {
    platform.catalog.installed.clear();
    resolver.start();

    resolver.emit();

    EXPECT_EQ(lists.values, (std::vector<Apps>{{}, {}}));
    EXPECT_EQ(log.count("mirror empty, using fallback list"), 2);
}

// Behaviour: app-source-resolver-2
TEST_F(AppSourceResolverTest, AdoptsTheMirroredListWhenAnAppIsDropped) {
    startMirroring();

    resolver.addManualApp(chess.url);

    EXPECT_EQ(manualApps(), stored(Apps{finder, mail, notes, music, maps, chess}));
    EXPECT_EQ(mode(), SourceMode::manual);
    EXPECT_EQ(log.messages(), (Lines{"manual list seeded from mirror, 5 apps",
                                     "list edited while mirroring: switched to manual, seeded",
                                     "manual add com.apple.Chess"}));
    EXPECT_EQ(lists.last(), (Apps{finder, mail, notes, music, maps, chess}));
}

// Behaviour: app-source-resolver-3
TEST_F(AppSourceResolverTest, IgnoresADroppedAppThatIsInTheListAlready) {
    startManual({mail, notes});

    resolver.addManualApp(mail.url);

    EXPECT_EQ(manualApps(), stored(Apps{mail, notes}));
    EXPECT_EQ(lists.count(), 0);
    EXPECT_EQ(log.messages(), Lines{});
}

// Behaviour: app-source-resolver-4
TEST_F(AppSourceResolverTest, ClampsTheTargetOfAMove) {
    startManual({mail, notes, music, maps});

    resolver.moveManualApp(mail.bundleID, 99);
    EXPECT_EQ(manualApps(), stored(Apps{notes, music, maps, mail}));

    resolver.moveManualApp(maps.bundleID, -2);
    EXPECT_EQ(manualApps(), stored(Apps{maps, notes, music, mail}));
    EXPECT_EQ(log.messages(),
              (Lines{"manual move com.apple.mail to 3", "manual move com.apple.Maps to 0"}));
}

// Behaviour: app-source-resolver-5
TEST_F(AppSourceResolverTest, DoesNotRemoveWhileMirroring) {
    startMirroring();
    const Settings before = store.settings();

    resolver.removeManualApp(mail.bundleID);

    EXPECT_EQ(store.settings(), before);
    EXPECT_EQ(lists.count(), 0);
    EXPECT_EQ(log.messages(), Lines{});
}

// Behaviour: app-source-resolver-6
TEST_F(AppSourceResolverTest, BringsAKeptManualListBackWhenATileIsDraggedWhileMirroring) {
    setManual(stored(Apps{chess, maps, mail}), SourceMode::mirror);
    startMirroring();

    resolver.moveManualApp(mail.bundleID, 0);

    EXPECT_EQ(mode(), SourceMode::manual);
    EXPECT_EQ(manualApps(), stored(Apps{mail, chess, maps}));
    EXPECT_EQ(log.messages(), (Lines{"list edited while mirroring: switched to manual, seeded",
                                     "manual move com.apple.mail to 0"}));
}

TEST_F(AppSourceResolverTest, BringsAKeptManualListBackEvenWithoutTheDraggedApp) {
    setManual(stored(Apps{chess, maps}), SourceMode::mirror);
    startMirroring();

    resolver.moveManualApp(mail.bundleID, 0);

    EXPECT_EQ(mode(), SourceMode::manual);
    EXPECT_EQ(manualApps(), stored(Apps{chess, maps}));
}

// Behaviour: app-source-resolver-7
TEST_F(AppSourceResolverTest, RemovesEveryEntryOfAnApp) {
    startManual({mail, notes, mail});

    resolver.removeManualApp(mail.bundleID);

    EXPECT_EQ(manualApps(), stored(Apps{notes}));
    EXPECT_EQ(log.messages(), Lines{"manual remove com.apple.mail"});
}

TEST_F(AppSourceResolverTest, LogsARemovalThatMatchesNothing) {
    startManual({mail});

    resolver.removeManualApp("com.example.unknown");

    EXPECT_EQ(manualApps(), stored(Apps{mail}));
    EXPECT_EQ(lists.count(), 0);
    EXPECT_EQ(log.messages(), Lines{"manual remove com.example.unknown"});
}

TEST_F(AppSourceResolverTest, AnnouncesAMoveInTwoSteps) {
    startManual({mail, notes, music});

    resolver.moveManualApp(mail.bundleID, 1);

    EXPECT_EQ(lists.values, (std::vector<Apps>{{notes, music}, {notes, mail, music}}));
    EXPECT_EQ(log.messages(), Lines{"manual move com.apple.mail to 1"});
}

TEST_F(AppSourceResolverTest, DoesNotWriteAMoveToTheSamePlace) {
    startManual({mail, notes});

    resolver.moveManualApp(notes.bundleID, 7);
    resolver.moveManualApp("com.example.unknown", 0);

    EXPECT_EQ(lists.count(), 0);
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(AppSourceResolverTest, MovesAnAppWhoseNameGoesWithTheListItComesFrom) {
    startManual({mail, notes});
    Apps shown{mail, notes};
    resolver.onChange = [&](const Apps& apps) { shown = apps; };

    resolver.moveManualApp(shown[0].bundleID, 1);

    EXPECT_EQ(log.messages(), Lines{"manual move com.apple.mail to 1"});
}

TEST_F(AppSourceResolverTest, AddsNothingButApps) {
    startManual({mail});
    const auto text = FileURL::fromPath("/Users/ada/letter.txt");
    const auto empty = FileURL::fromPath("/Applications/Empty.app");
    const auto shouting = FileURL::fromPath("/Applications/Chess.APP");
    platform.fileSystem.put(text);
    platform.fileSystem.putFolder(empty);
    platform.catalog.installed.push_back({"com.example.shouting", "Shouting", shouting});
    platform.catalog.installed.push_back({"com.example.text", "Text", text});

    for (const FileURL& url : {text, empty, shouting})
        resolver.addManualApp(url);

    EXPECT_EQ(manualApps(), stored(Apps{mail}));
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(AppSourceResolverTest, AsksThePlatformWhatAnAppIsCalled) {
    platform.catalog.appExtension = "desktop";
    const AppRef editor = platform.install("org.example.Editor", "Editor");
    startManual({mail});

    resolver.addManualApp(chess.url);
    resolver.addManualApp(editor.url);

    EXPECT_EQ(manualApps(), stored(Apps{mail, editor}));
}

TEST_F(AppSourceResolverTest, KeepsMirroringWhenThereIsNothingToAdopt) {
    platform.catalog.installed = {chess};
    owned();
    resolver.start();
    log.clear();

    resolver.addManualApp(chess.url);
    resolver.moveManualApp(chess.bundleID, 0);

    EXPECT_EQ(mode(), SourceMode::mirror);
    EXPECT_TRUE(manualApps().empty());
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(AppSourceResolverTest, SeedsAnEmptyManualListWhenTheUserSwitchesToIt) {
    startMirroring();

    setManual({});

    EXPECT_EQ(manualApps(), stored(Apps{finder, mail, notes, music, maps}));
    EXPECT_EQ(lists.last(), (Apps{finder, mail, notes, music, maps}));
    EXPECT_EQ(log.messages(), Lines{"manual list seeded from mirror, 5 apps"});
}

TEST_F(AppSourceResolverTest, ShowsTheManualListFromTheStart) {
    setManual(stored(Apps{chess}));
    platform.pin({mail});

    resolver.start();

    EXPECT_EQ(lists.values, (std::vector<Apps>{Apps{chess}}));
}

TEST_F(AppSourceResolverTest, RecordsReadingsInManualModeButShowsNothingOfThem) {
    startManual({chess});

    platform.dockPreferences.announceChange();
    platform.runLoop.advance(1);

    EXPECT_EQ(lists.count(), 0);
    EXPECT_EQ(log.messages(), Lines{"mirror: 2 pinned apps from Apple's Dock"});
    Settings settings = store.settings();
    settings.sourceMode = SourceMode::mirror;
    store.setSettings(settings);
    EXPECT_EQ(lists.last(), (Apps{finder, mail}));
}

TEST_F(AppSourceResolverTest, HidesManualAppsThatAreGoneAndKeepsTheirEntries) {
    startManual({mail, chess, notes});
    platform.fileSystem.remove(chess.url);

    resolver.emit();

    EXPECT_EQ(lists.last(), (Apps{mail, notes}));
    EXPECT_EQ(manualApps(), stored(Apps{mail, chess, notes}));
}

TEST_F(AppSourceResolverTest, HidesManualAppsWhosePathLeadsNowhere) {
    setManual({{"a", "A", ""}, {"b", "B", "relative.app"}, stored(mail)});

    resolver.emit();

    EXPECT_EQ(lists.last(), Apps{mail});
}

TEST_F(AppSourceResolverTest, CarriesOnWhenTheSettingsCannotBeSaved) {
    startMirroring();
    platform.fileSystem.writeFailure = PlatformError{28, "No space left on device"};

    resolver.addManualApp(chess.url);

    EXPECT_EQ(lists.last(), (Apps{finder, mail, notes, music, maps, chess}));
    EXPECT_EQ(log.count("preferences save failed: No space left on device"), 3);
}

TEST_F(AppSourceResolverTest, AMoveCountsTheAppsThatAreShownAlone) {
    startManual({finder, mail, notes, maps});
    platform.fileSystem.remove(notes.url);

    resolver.moveManualApp(mail.bundleID, 2);

    EXPECT_EQ(lists.last(), (Apps{finder, maps, mail}));
    EXPECT_EQ(manualApps(), stored(Apps{finder, notes, maps, mail}));
    EXPECT_EQ(log.messages(), Lines{"manual move com.apple.mail to 3"});

    resolver.moveManualApp(mail.bundleID, 1);

    EXPECT_EQ(lists.last(), (Apps{finder, mail, maps}));
}

TEST_F(AppSourceResolverTest, AMoveToThePlaceWhereAnAppIsShownChangesNothing) {
    startManual({notes, finder, mail});
    platform.fileSystem.remove(notes.url);

    resolver.moveManualApp(finder.bundleID, 0);
    resolver.moveManualApp(mail.bundleID, 9);

    EXPECT_EQ(manualApps(), stored(Apps{notes, finder, mail}));
    EXPECT_TRUE(log.messages().empty());
}

TEST_F(AppSourceResolverTest, AnAppThatWasDeletedWhileItsTileWasDraggedIsMovedAndHidden) {
    startManual({finder, mail, notes});
    platform.fileSystem.remove(notes.url);

    resolver.moveManualApp(notes.bundleID, 0);

    EXPECT_EQ(lists.last(), (Apps{finder, mail}));
    EXPECT_EQ(manualApps(), stored(Apps{notes, finder, mail}));
}

TEST_F(AppSourceResolverTest, AMoveKeepsEveryHiddenAppBetweenItsNeighbours) {
    startManual({finder, notes, mail, music, maps});
    platform.fileSystem.remove(notes.url);
    platform.fileSystem.remove(music.url);

    resolver.moveManualApp(maps.bundleID, 0);

    EXPECT_EQ(lists.last(), (Apps{maps, finder, mail}));
    EXPECT_EQ(manualApps(), stored(Apps{maps, finder, notes, mail, music}));
}

}
}
