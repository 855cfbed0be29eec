#include "Settings/PreferencesStore.hpp"
#include "Settings/SettingsCoding.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/Printing.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vireline {
namespace {

using test::FakePlatform;
using test::LoggedLines;
using Lines = std::vector<std::string>;

constexpr const char* damagedLine = "preferences unreadable, using defaults (file kept)";

struct PreferencesStoreTest : testing::Test {
    [[nodiscard]] PreferencesStore makeStore() {
        return PreferencesStore{platform.fileSystem, platform.userFolders};
    }

    [[nodiscard]] std::string content() { return platform.fileSystem.files[file.path()]; }
    [[nodiscard]] std::vector<std::string> writes() {
        return platform.fileSystem.writes[file.path()];
    }

    FakePlatform platform;
    LoggedLines log;
    FileURL file =
        FileURL::fromPath("/Users/ada/Library/Application Support/Vireline/preferences.json");
};

Settings withIconSize(double iconSize) {
    Settings settings;
    settings.iconSize = iconSize;
    return settings;
}

TEST_F(PreferencesStoreTest, TakesTheDefaultsInSilenceWhenThereIsNoFile) {
    const PreferencesStore store = makeStore();

    EXPECT_EQ(store.settings(), Settings{});
    EXPECT_EQ(store.fileURL(), file);
    EXPECT_EQ(log.messages(), Lines{});
    EXPECT_FALSE(platform.fileSystem.exists(file));
}

TEST_F(PreferencesStoreTest, TakesTheDefaultsInSilenceWhenTheFileCannotBeRead) {
    platform.fileSystem.put(file, SettingsCoding::encode(withIconSize(60)));
    platform.fileSystem.readFailure = PlatformError{13, "Permission denied"};

    const PreferencesStore store = makeStore();

    EXPECT_EQ(store.settings(), Settings{});
    EXPECT_EQ(log.messages(), Lines{});
}

TEST_F(PreferencesStoreTest, LoadsTheFileAndDoesNotWriteItBack) {
    platform.fileSystem.put(file, R"({"iconSize": 500, "position": "left"})");

    const PreferencesStore store = makeStore();

    EXPECT_EQ(store.settings().iconSize, 500);
    EXPECT_EQ(store.settings().position, DockPosition::left);
    EXPECT_EQ(writes(), Lines{});
}

TEST_F(PreferencesStoreTest, KeepsItsFileInTheFolderItIsGiven) {
    PreferencesStore store{platform.fileSystem, platform.userFolders, FileURL::fromPath("/data/x")};

    store.setSettings(withIconSize(60));

    EXPECT_EQ(store.fileURL().path(), "/data/x/preferences.json");
    EXPECT_TRUE(platform.fileSystem.exists(store.fileURL()));
}

// Behaviour: preferences-store-1
TEST_F(PreferencesStoreTest, NeitherSavesNorReportsAnEqualRecord) {
    PreferencesStore store = makeStore();
    int calls = 0;
    store.onChange = [&] { ++calls; };

    store.setSettings(store.settings());

    EXPECT_EQ(calls, 0);
    EXPECT_EQ(writes(), Lines{});
}

// Behaviour: preferences-store-2
TEST_F(PreferencesStoreTest, SavesBeforeItNotifiesItsListener) {
    PreferencesStore store = makeStore();
    std::vector<Settings> seenInFile;
    store.onChange = [&] { seenInFile.push_back(SettingsCoding::decode(content()).value()); };

    store.setSettings(withIconSize(60));

    EXPECT_EQ(seenInFile, std::vector{withIconSize(60)});
}

// Behaviour: preferences-store-3
TEST_F(PreferencesStoreTest, KeepsADamagedFileUntilTheFirstChange) {
    const std::string damaged = "{\"iconSize\": \"large\"}\n";
    platform.fileSystem.put(file, damaged);

    PreferencesStore store = makeStore();

    EXPECT_EQ(store.settings(), Settings{});
    EXPECT_EQ(content(), damaged);
    EXPECT_EQ(log.messages(), Lines{damagedLine});

    store.setSettings(withIconSize(60));

    EXPECT_EQ(SettingsCoding::decode(content()).value(), withIconSize(60));
    EXPECT_EQ(log.messages(), Lines{damagedLine});
}

// Behaviour: preferences-store-4
TEST_F(PreferencesStoreTest, SavesEachOfTwoChanges) {
    PreferencesStore store = makeStore();

    store.setSettings(withIconSize(60));
    store.setSettings(withIconSize(70));

    ASSERT_EQ(writes().size(), 2U);
    EXPECT_EQ(SettingsCoding::decode(writes()[0]).value(), withIconSize(60));
    EXPECT_EQ(SettingsCoding::decode(content()).value(), withIconSize(70));
}

TEST_F(PreferencesStoreTest, LogsAFailedSaveKeepsTheRecordAndNotifiesItsListener) {
    PreferencesStore store = makeStore();
    int calls = 0;
    store.onChange = [&] { ++calls; };
    platform.fileSystem.writeFailure = PlatformError{28, "No space left on device"};

    store.setSettings(withIconSize(60));

    EXPECT_EQ(store.settings(), withIconSize(60));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(log.messages(), Lines{"preferences save failed: No space left on device"});
}

TEST_F(PreferencesStoreTest, LogsThatItsFolderCannotBeCreated) {
    PreferencesStore store = makeStore();
    platform.fileSystem.folderFailure = PlatformError{30, "Read-only file system"};

    store.setSettings(withIconSize(60));

    EXPECT_EQ(log.messages(), Lines{"preferences save failed: Read-only file system"});
    EXPECT_EQ(writes(), Lines{});
}

TEST_F(PreferencesStoreTest, SavesAgainOnceTheDiskHasRoom) {
    PreferencesStore store = makeStore();
    platform.fileSystem.writeFailure = PlatformError{28, "No space left on device"};
    store.setSettings(withIconSize(60));
    platform.fileSystem.writeFailure.reset();

    store.setSettings(withIconSize(70));

    EXPECT_EQ(SettingsCoding::decode(content()).value(), withIconSize(70));
}

TEST_F(PreferencesStoreTest, ShowsObserversTheNewRecordForAsLongAsTheySubscribe) {
    PreferencesStore store = makeStore();
    std::vector<double> seen;
    Subscription subscription = store.observe([&] { seen.push_back(store.settings().iconSize); });

    store.setSettings(withIconSize(60));
    store.setSettings(withIconSize(60));
    subscription.reset();
    store.setSettings(withIconSize(70));

    EXPECT_EQ(seen, std::vector<double>{60});
}

TEST_F(PreferencesStoreTest, HoldsAChangeThatItsListenerMakes) {
    PreferencesStore store = makeStore();
    store.onChange = [&] {
        Settings settings = store.settings();
        settings.autoHide = true;
        store.setSettings(settings);
    };

    store.setSettings(withIconSize(60));

    EXPECT_TRUE(SettingsCoding::decode(content()).value().autoHide);
    EXPECT_EQ(writes().size(), 2U);
}

TEST_F(PreferencesStoreTest, TakesAnyDamageForUnreadable) {
    const std::string whole = SettingsCoding::encode(withIconSize(60));
    const std::string deep(100'000, '[');
    const std::vector<std::string> damages{
        "",
        whole.substr(0, whole.size() / 2),
        std::string(64, '\0'),
        whole.substr(0, whole.size() - 8) + std::string(8, '\0'),
        "\xff\xfe\xfd",
        "[]",
        "null",
        deep,
        "{\"manualApps\": " + deep,
        "{\"unknown\": " + deep,
    };
    for (const std::string& damage : damages) {
        log.clear();
        platform.fileSystem.put(file, damage);

        const PreferencesStore store = makeStore();

        EXPECT_EQ(store.settings(), Settings{});
        EXPECT_EQ(log.messages(), Lines{damagedLine});
        EXPECT_EQ(content(), damage);
    }
}

TEST_F(PreferencesStoreTest, TakesAFileThatIsTooLongForDamaged) {
    const std::size_t megabyte = std::size_t{1024} * 1024;
    std::string text = SettingsCoding::encode(withIconSize(60));
    text.resize(17 * megabyte, ' ');
    platform.fileSystem.put(file, text);

    const PreferencesStore store = makeStore();

    EXPECT_EQ(store.settings(), Settings{});
    EXPECT_EQ(log.messages(), Lines{damagedLine});
    EXPECT_TRUE(content() == text);
}

TEST_F(PreferencesStoreTest, ReadsAFileOfTheGreatestLength) {
    std::string text = SettingsCoding::encode(withIconSize(60));
    text.resize(PreferencesStore::maximumFileBytes, ' ');
    platform.fileSystem.put(file, text);

    const PreferencesStore store = makeStore();

    EXPECT_EQ(store.settings(), withIconSize(60));
}

using PreferencesStoreDeathTest = PreferencesStoreTest;

TEST_F(PreferencesStoreDeathTest, StopsWhereNoFolderIsForPrograms) {
    platform.userFolders.applicationSupportFolders.clear();

    EXPECT_DEATH((void)makeStore(), "there is a folder for programs' data");
}

}
}
