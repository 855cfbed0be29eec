/// Undoing edits of the list of pinned apps.
#include "Kit/Sources/AppSourceResolverTest.hpp"

namespace vireline {
namespace {

using test::AppSourceResolverTest;
using test::stored;
using Apps = std::vector<AppRef>;
using Lines = std::vector<std::string>;

// Behaviour: undo-1
TEST_F(AppSourceResolverTest, UndoingTheMoveThatEndedMirroringMirrorsAgainWithTheOldManualList) {
    startMirroring();

    resolver.moveManualApp(notes.bundleID, 0);
    ASSERT_EQ(mode(), SourceMode::manual);
    EXPECT_EQ(resolver.undoTitle(), "Undo Move of Notes");
    log.clear();
    resolver.undo();

    EXPECT_EQ(mode(), SourceMode::mirror);
    EXPECT_TRUE(manualApps().empty());
    EXPECT_EQ(lists.values.back(), (Apps{finder, mail, notes, music, maps}));
    EXPECT_EQ(log.messages(), (Lines{"manual undo com.apple.Notes"}));
    EXPECT_EQ(resolver.undoTitle(), std::nullopt);
}

TEST_F(AppSourceResolverTest, UndoesAnAddedAndARemovedAppStepByStep) {
    startManual({mail, notes, mail});
    const auto original = manualApps();

    resolver.removeManualApp(mail.bundleID);
    resolver.addManualApp(chess.url);
    EXPECT_EQ(resolver.undoTitle(), "Undo Adding Chess");
    resolver.undo();
    EXPECT_EQ(manualApps(), stored(Apps{notes}));
    EXPECT_EQ(resolver.undoTitle(), "Undo Removing Mail");
    resolver.undo();

    EXPECT_EQ(manualApps(), original);
    EXPECT_EQ(mode(), SourceMode::manual);
    EXPECT_EQ(resolver.undoTitle(), std::nullopt);
}

// Behaviour: undo-2
TEST_F(AppSourceResolverTest, AChangeOfTheListFromElsewhereLeavesNothingToUndo) {
    startManual({mail, notes});
    resolver.removeManualApp(mail.bundleID);

    setManual(stored(Apps{music}));
    EXPECT_EQ(resolver.undoTitle(), std::nullopt);
    resolver.undo();
    EXPECT_EQ(manualApps(), stored(Apps{music}));
    setManual(stored(Apps{notes}));
    EXPECT_EQ(resolver.undoTitle(), std::nullopt);
}

TEST_F(AppSourceResolverTest, AnotherSettingThatChangesLeavesTheListsEditsUndoable) {
    startManual({mail, notes});
    resolver.removeManualApp(mail.bundleID);

    Settings settings = store.settings();
    settings.iconSize = 60;
    store.setSettings(settings);
    EXPECT_EQ(resolver.undoTitle(), "Undo Removing Mail");
    resolver.undo();

    EXPECT_EQ(manualApps(), stored(Apps{mail, notes}));
    EXPECT_EQ(store.settings().iconSize, 60);
}

TEST_F(AppSourceResolverTest, AnEditWithoutEffectCannotBeUndone) {
    startManual({mail, notes});

    resolver.addManualApp(mail.url);
    resolver.removeManualApp(chess.bundleID);
    resolver.moveManualApp(mail.bundleID, 0);

    EXPECT_EQ(resolver.undoTitle(), std::nullopt);
}

}
}
