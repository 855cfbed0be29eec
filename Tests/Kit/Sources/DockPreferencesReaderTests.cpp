#include "Sources/DockPreferencesReader.hpp"
#include "Support/FakePlatform.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vireline {
namespace {

using test::dockTile;
using test::FakePlatform;
using test::FakePropertyListDecoder;
using Dictionary = PropertyList::Dictionary;

PropertyList preferencesHolding(PropertyList::Array tiles) {
    return PropertyList{Dictionary{{"persistent-apps", PropertyList{std::move(tiles)}}}};
}

std::vector<std::string> paths(const std::vector<ParsedDockEntry>& entries) {
    std::vector<std::string> found;
    found.reserve(entries.size());
    for (const auto& entry : entries)
        found.push_back(entry.url.path());
    return found;
}

struct DockPreferencesParseTest : testing::Test {
    [[nodiscard]] Result<std::vector<ParsedDockEntry>> parse(const PropertyList& root) {
        decoder.known["file"] = root;
        return DockPreferencesReader::parse(std::as_bytes(std::span{std::string_view{"file"}}),
                                            decoder);
    }

    FakePropertyListDecoder decoder;
};

TEST(DockPreferencesReader, ReadsLabelIdentifierAndLocationInTheDocksOrder) {
    const auto entries = DockPreferencesReader::parseEntries(
        {dockTile("file:///Applications/Mail.app/", "Mail", "com.apple.mail"),
         dockTile("file:///Applications/My%20App.app", "My App", "org.my.app")});

    EXPECT_EQ(entries, (std::vector<ParsedDockEntry>{
                           {"Mail", "com.apple.mail", FileURL::fromPath("/Applications/Mail.app")},
                           {"My App", "org.my.app", FileURL::fromPath("/Applications/My App.app")},
                       }));
}

// Behaviour: dock-preferences-reader-1
TEST(DockPreferencesReader, SkipsAWebAddressAndKeepsItsNeighboursInOrder) {
    const auto entries = DockPreferencesReader::parseEntries(
        {dockTile("file:///a.app"), dockTile("https://example.org/b"), dockTile("file:///c.app")});

    EXPECT_EQ(paths(entries), (std::vector<std::string>{"/a.app", "/c.app"}));
}

// Behaviour: dock-preferences-reader-2
TEST(DockPreferencesReader, KeepsATileWithoutLabelOrIdentifier) {
    const auto entries = DockPreferencesReader::parseEntries({dockTile("file:///a.app")});

    EXPECT_EQ(entries, (std::vector<ParsedDockEntry>{
                           {std::nullopt, std::nullopt, FileURL::fromPath("/a.app")}}));
}

TEST(DockPreferencesReader, TakesALabelOfAnotherKindForNone) {
    const PropertyList tile{Dictionary{
        {"tile-data", PropertyList{Dictionary{
                          {"file-label", PropertyList{std::int64_t{7}}},
                          {"bundle-identifier", PropertyList{PropertyList::Array{}}},
                          {"file-data", PropertyList{Dictionary{
                                            {"_CFURLString", PropertyList{"file:///a.app"}}}}}}}}}};

    const auto entries = DockPreferencesReader::parseEntries({tile});

    EXPECT_EQ(entries, (std::vector<ParsedDockEntry>{
                           {std::nullopt, std::nullopt, FileURL::fromPath("/a.app")}}));
}

// Behaviour: dock-preferences-reader-3
TEST(DockPreferencesReader, SkipsATileWhoseFileDataIsAString) {
    const PropertyList tile{Dictionary{
        {"tile-data",
         PropertyList{Dictionary{{"file-data", PropertyList{"file:///Applications/Mail.app"}}}}}}};

    EXPECT_TRUE(DockPreferencesReader::parseEntries({tile}).empty());
}

TEST(DockPreferencesReader, SkipsMalformedTilesAndKeepsTheOthers) {
    const PropertyList noTileData{Dictionary{{"GUID", PropertyList{std::int64_t{1}}}}};
    const PropertyList textTileData{Dictionary{{"tile-data", PropertyList{"text"}}}};
    const PropertyList noFileData{Dictionary{{"tile-data", PropertyList{Dictionary{}}}}};
    const PropertyList numberURL{Dictionary{
        {"tile-data",
         PropertyList{Dictionary{
             {"file-data", PropertyList{Dictionary{{"_CFURLString", PropertyList{true}}}}}}}}}};

    const auto entries = DockPreferencesReader::parseEntries(
        {noTileData, textTileData, noFileData, numberURL, dockTile(""), dockTile("no url at all"),
         dockTile("/Applications/Mail.app"), dockTile("file:///kept.app")});

    EXPECT_EQ(paths(entries), std::vector<std::string>{"/kept.app"});
}

// Behaviour: dock-preferences-reader-4
TEST_F(DockPreferencesParseTest,
       FindsNothingWithoutPersistentAppsAndFailsOnlyWithoutAPropertyList) {
    const auto empty = parse(PropertyList{Dictionary{{"orientation", PropertyList{"left"}}}});
    ASSERT_TRUE(empty);
    EXPECT_TRUE(empty->empty());

    const auto failed = DockPreferencesReader::parse({}, decoder);
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error(), decoder.damage);
}

TEST_F(DockPreferencesParseTest, HandsOutTheListOfAFileAsItIs) {
    decoder.known["file"] = PropertyList{Dictionary{{"persistent-apps", PropertyList{"text"}}}};
    const auto bytes = std::as_bytes(std::span{std::string_view{"file"}});

    EXPECT_EQ(DockPreferencesReader::tileList(bytes, decoder).value(), PropertyList{"text"});
    decoder.known["file"] = PropertyList{Dictionary{}};
    EXPECT_EQ(DockPreferencesReader::tileList(bytes, decoder).value(), std::nullopt);
    EXPECT_FALSE(DockPreferencesReader::tileList({}, decoder));
}

TEST_F(DockPreferencesParseTest, ReadsTheTilesOfAWholeFile) {
    const auto entries = parse(preferencesHolding({dockTile("file:///a.app", "A", "a")}));

    ASSERT_TRUE(entries);
    EXPECT_EQ(*entries, (std::vector<ParsedDockEntry>{{"A", "a", FileURL::fromPath("/a.app")}}));
}

TEST_F(DockPreferencesParseTest, FindsNothingInARootOrListOfAnotherShape) {
    const PropertyList notAList{Dictionary{{"persistent-apps", PropertyList{"text"}}}};
    const PropertyList mixedList =
        preferencesHolding({dockTile("file:///a.app"), PropertyList{true}});
    for (const PropertyList& root : {PropertyList{"text"}, PropertyList{}, notAList, mixedList}) {
        const auto entries = parse(root);

        ASSERT_TRUE(entries);
        EXPECT_TRUE(entries->empty());
    }
}

// Behaviour: dock-preferences-reader-5
TEST(DockPreferencesReader, ListsTheFinderOnlyIfThePreferencesDo) {
    FakePlatform platform;
    const AppRef finder = platform.install("com.apple.finder", "Finder");
    const AppRef mail = platform.install("com.apple.mail", "Mail");

    platform.pin({mail});
    EXPECT_EQ(paths(DockPreferencesReader::readCurrent(platform.dockPreferences)),
              std::vector<std::string>{mail.url.path()});

    platform.pin({mail, finder});
    EXPECT_EQ(paths(DockPreferencesReader::readCurrent(platform.dockPreferences)),
              (std::vector<std::string>{mail.url.path(), finder.url.path()}));
}

TEST(DockPreferencesReader, ReadsNothingFromAbsentOrUnfitPreferences) {
    FakePlatform platform;
    EXPECT_TRUE(DockPreferencesReader::readCurrent(platform.dockPreferences).empty());

    platform.dockPreferences.tiles = PropertyList{"text"};
    EXPECT_TRUE(DockPreferencesReader::readCurrent(platform.dockPreferences).empty());

    platform.dockPreferences.tiles =
        PropertyList{PropertyList::Array{dockTile("file:///a.app"), PropertyList{"text"}}};
    EXPECT_TRUE(DockPreferencesReader::readCurrent(platform.dockPreferences).empty());
}

TEST(DockPreferencesReader, KnowsThePreferencesFile) {
    FakePlatform platform;

    EXPECT_EQ(DockPreferencesReader::plistURL(platform.userFolders).path(),
              "/Users/ada/Library/Preferences/com.apple.dock.plist");
}

}
}
