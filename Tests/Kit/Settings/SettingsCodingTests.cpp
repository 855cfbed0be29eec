#include "Settings/SettingsCoding.hpp"
#include "Support/Random.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace vireline {
namespace {

using SettingsCoding::decode;
using SettingsCoding::encode;

constexpr std::size_t absurdDepth = 40'000;

std::string repeated(std::string_view text, std::size_t times) {
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

/// Every member differs from its default.
Settings unusualSettings() {
    return {.schemaVersion = 7,
            .sourceMode = SourceMode::manual,
            .manualApps = {{"org.b", "B \"quoted\" \\ é\n", "/b"}, {"org.a", "", "/a b"}},
            .iconSize = 51.3,
            .hideOverFullScreen = false,
            .position = DockPosition::right,
            .autoHide = true,
            .magnificationEnabled = true,
            .magnification = 1.7000000000000002,
            .anchorAppleDock = true,
            .openOnThisDisplay = true,
            .summonOnClick = true,
            .fillOnDoubleClick = true,
            .onboardingCompleted = true};
}

/// The keys of the outermost object, in order; relies on an indentation of four.
std::vector<std::string> topLevelKeys(const std::string& text) {
    static constexpr std::string_view beforeKey = "\n    \"";
    std::vector<std::string> keys;
    for (auto found = text.find(beforeKey); found != std::string::npos;
         found = text.find(beforeKey, found + 1)) {
        const auto start = found + beforeKey.size();
        keys.push_back(text.substr(start, text.find('"', start) - start));
    }
    return keys;
}

// Behaviour: settings-1
TEST(SettingsCoding, ReadsAnEmptyObjectAsTheDefaults) {
    EXPECT_EQ(decode("{}"), Settings{});
    EXPECT_EQ(decode(" \n{\t}\r\n"), Settings{});
}

// Behaviour: settings-2
TEST(SettingsCoding, ReadsASingleMemberAndTakesTheRestFromTheDefaults) {
    Settings expected;
    expected.position = DockPosition::left;
    EXPECT_EQ(decode(R"({"position": "left"})"), expected);
}

// Behaviour: settings-3
TEST(SettingsCoding, FailsForAnUnknownPosition) {
    for (const char* text : {"top", "Bottom", "BOTTOM", "", " left"})
        EXPECT_FALSE(decode(R"({"position": ")" + std::string{text} + "\"}")) << text;
    EXPECT_FALSE(decode(R"({"sourceMode": "Mirror"})"));
}

// Behaviour: settings-4
TEST(SettingsCoding, FailsForAnIconSizeThatIsAString) {
    EXPECT_FALSE(decode(R"({"iconSize": "44"})"));
}

// Behaviour: settings-5
TEST(SettingsCoding, FailsForAManualAppThatLacksAMember) {
    EXPECT_FALSE(decode(R"({"manualApps": [{"bundleID": "a", "name": "A"}]})"));
    EXPECT_FALSE(decode(R"({"manualApps": [{"bundleID": "a", "path": "/a"}]})"));
    EXPECT_FALSE(decode(R"({"manualApps": [{"name": "A", "path": "/a"}]})"));
    EXPECT_FALSE(decode(
        R"({"manualApps": [{"bundleID": "a", "name": "A", "path": "/a"}, {"bundleID": "b"}]})"));
}

// Behaviour: settings-6
TEST(SettingsCoding, WritesTheDefaultsWithSortedKeysAndReadsThemBack) {
    const std::string text = encode(Settings{});
    EXPECT_EQ(decode(text), Settings{});

    const auto keys = topLevelKeys(text);
    ASSERT_EQ(keys.size(), 14U);
    EXPECT_EQ(keys.front(), "anchorAppleDock");
    EXPECT_EQ(keys.back(), "summonOnClick");
    EXPECT_TRUE(std::ranges::is_sorted(keys));
}

TEST(SettingsCoding, KeepsEveryMemberThroughWritingAndReading) {
    const Settings settings = unusualSettings();
    EXPECT_EQ(decode(encode(settings)), settings);
}

TEST(SettingsCoding, KeepsTheOrderAndTheDuplicatesOfTheManualList) {
    Settings settings;
    settings.manualApps = {{"z", "Z", "/z"}, {"a", "A", "/a"}, {"z", "Z", "/z"}};
    EXPECT_EQ(decode(encode(settings)), settings);
}

TEST(SettingsCoding, SortsTheKeysOfAManualApp) {
    Settings settings;
    settings.manualApps = {{"b", "n", "p"}};
    const std::string text = encode(settings);
    EXPECT_LT(text.find("\"bundleID\""), text.find("\"name\""));
    EXPECT_LT(text.find("\"name\""), text.find("\"path\""));
}

TEST(SettingsCoding, TakesANullForADefault) {
    EXPECT_EQ(decode(R"({"schemaVersion": null, "sourceMode": null, "manualApps": null,
                         "iconSize": null, "hideOverFullScreen": null, "position": null,
                         "autoHide": null, "magnificationEnabled": null, "magnification": null,
                         "anchorAppleDock": null, "openOnThisDisplay": null, "summonOnClick": null,
                         "fillOnDoubleClick": null, "onboardingCompleted": null})"),
              Settings{});
}

TEST(SettingsCoding, FailsForANullInAManualApp) {
    EXPECT_FALSE(decode(R"({"manualApps": [{"bundleID": "a", "name": null, "path": "/a"}]})"));
    EXPECT_FALSE(decode(R"({"manualApps": [null]})"));
}

TEST(SettingsCoding, FailsForEveryMemberOfAWrongType) {
    const auto keys = topLevelKeys(encode(unusualSettings()));
    for (const std::string& key : keys) {
        EXPECT_FALSE(decode("{\"" + key + "\": {}}")) << key;
        EXPECT_FALSE(decode("{\"" + key + "\": [1]}")) << key;
        EXPECT_FALSE(decode("{\"" + key + "\": \"text\"}")) << key;
    }
    for (const char* flag : {"autoHide", "hideOverFullScreen", "onboardingCompleted"})
        EXPECT_FALSE(decode("{\"" + std::string{flag} + "\": 1}")) << flag;
    for (const char* number : {"iconSize", "magnification", "schemaVersion", "position"})
        EXPECT_FALSE(decode("{\"" + std::string{number} + "\": true}")) << number;
    EXPECT_FALSE(decode(R"({"manualApps": ["a"]})"));
    EXPECT_FALSE(decode(R"({"manualApps": [[]]})"));
    EXPECT_FALSE(decode(R"({"manualApps": [{"bundleID": 1, "name": "A", "path": "/a"}]})"));
    EXPECT_FALSE(decode(R"({"manualApps": [{"bundleID": [], "name": "A", "path": "/a"}]})"));
}

TEST(SettingsCoding, FailsForTextThatIsNotAnObject) {
    for (const char* text : {"",
                             " ",
                             "null",
                             "true",
                             "44",
                             "\"{}\"",
                             "[]",
                             "[{}]",
                             "{",
                             "}",
                             "{}}",
                             "{} {}",
                             "{}x",
                             "{\"a\"}",
                             "{\"a\":}",
                             "{\"a\":1,}",
                             "{'a':1}",
                             "{\"iconSize\": 044}",
                             "{\"iconSize\": NaN}",
                             "{} // comment"})
        EXPECT_FALSE(decode(text)) << text;
}

TEST(SettingsCoding, IgnoresUnknownMembersOfAnyShape) {
    Settings expected;
    expected.autoHide = true;
    expected.manualApps = {{"a", "A", "/a"}};
    EXPECT_EQ(decode(R"({"future": {"autoHide": 1, "position": {"x": [1, {"y": 2}]}},
                         "autoHide": true, "": [], "AutoHide": 3, "list": [[], {}, null, 1.5],
                         "manualApps": [{"bundleID": "a", "tags": ["x", {"path": 1}], "name": "A",
                                         "icon": null, "path": "/a", "more": {"name": 2}}]})"),
              expected);
}

TEST(SettingsCoding, ClampsNothing) {
    const auto settings = decode(R"({"iconSize": 500, "magnification": 0.2})");
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->iconSize, 500);
    EXPECT_EQ(settings->magnification, 0.2);
    EXPECT_EQ(decode(R"({"iconSize": -3})")->iconSize, -3);
}

TEST(SettingsCoding, TakesASchemaVersionFromAnyNumberOfIntegralValue) {
    EXPECT_EQ(decode(R"({"schemaVersion": 2})")->schemaVersion, 2);
    EXPECT_EQ(decode(R"({"schemaVersion": -2})")->schemaVersion, -2);
    EXPECT_EQ(decode(R"({"schemaVersion": 2.0})")->schemaVersion, 2);
    EXPECT_EQ(decode(R"({"schemaVersion": 2e2})")->schemaVersion, 200);
    EXPECT_EQ(decode(R"({"schemaVersion": 9223372036854775807})")->schemaVersion,
              std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(decode(R"({"schemaVersion": -9223372036854775808})")->schemaVersion,
              std::numeric_limits<std::int64_t>::min());
}

TEST(SettingsCoding, FailsForASchemaVersionThatIsNotA64BitInteger) {
    for (const char* number :
         {"1.5", "9223372036854775808", "18446744073709551615", "18446744073709551616",
          "-9223372036854775809", "-99999999999999999999999", "1e30", "-1e30", "1e-3", "1e400"})
        EXPECT_FALSE(decode("{\"schemaVersion\": " + std::string{number} + "}")) << number;
}

TEST(SettingsCoding, TakesHugeAndTinyNumbersWhereRealOnesGo) {
    EXPECT_EQ(decode(R"({"iconSize": 18446744073709551616})")->iconSize, 0x1p64);
    EXPECT_EQ(decode(R"({"iconSize": 9223372036854775808})")->iconSize, 0x1p63);
    EXPECT_EQ(decode(R"({"iconSize": 1e-400})")->iconSize, 0);
    EXPECT_FALSE(decode(R"({"iconSize": 1e400})"));
}

TEST(SettingsCoding, LetsTheLastOfDuplicateKeysCount) {
    EXPECT_EQ(decode(R"({"iconSize": 20, "iconSize": 30})")->iconSize, 30);
    EXPECT_EQ(decode(R"({"iconSize": 20, "iconSize": null})")->iconSize, 44);
    const auto apps = decode(R"({"manualApps": [{"bundleID": "a", "name": "A", "path": "/a"}],
                                 "manualApps": []})");
    ASSERT_TRUE(apps);
    EXPECT_TRUE(apps->manualApps.empty());
}

TEST(SettingsCoding, ReadsTextBehindAByteOrderMark) {
    EXPECT_EQ(decode("\xEF\xBB\xBF{\"iconSize\": 20}")->iconSize, 20);
    EXPECT_FALSE(decode("\xEF\xBB{}"));
    EXPECT_FALSE(decode("\xEF\xBB\xBF"));
}

TEST(SettingsCoding, FailsForTextThatIsNotUTF8) {
    EXPECT_FALSE(decode("{\"x\": \"\xFF\"}"));
    EXPECT_FALSE(decode("{\"x\": \"\xC3\"}"));
    EXPECT_FALSE(decode("{\"x\": \"\xED\xA0\x80\"}"));
    EXPECT_FALSE(decode("{\"\xC0\x80\": 1}"));
    EXPECT_FALSE(decode(R"({"x": "\ud800"})"));
    EXPECT_FALSE(decode(std::string_view{"\xFF\xFE{\0}\0", 6}));
}

TEST(SettingsCoding, FailsForZeroBytes) {
    EXPECT_FALSE(decode(std::string_view{"{}\0\0\0", 5}));
    EXPECT_FALSE(decode(std::string(4096, '\0')));
}

TEST(SettingsCoding, ReplacesBytesThatAreNotUTF8WhenWriting) {
    Settings settings;
    settings.manualApps = {{"a", "\xFF\xFE", "/caf\xE9"}};
    const auto read = decode(encode(settings));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->manualApps.front().path, "/caf\uFFFD");
}

TEST(SettingsCoding, IgnoresUnknownMembersOfAnyDepth) {
    const std::string arrays =
        repeated("[", absurdDepth) + "1" + repeated("]", absurdDepth) + ", \"autoHide\": true}";
    EXPECT_TRUE(decode("{\"x\": " + arrays)->autoHide);
    const std::string objects = repeated("{\"x\":", absurdDepth) + "1" +
                                repeated("}", absurdDepth) + ", \"autoHide\": true}";
    EXPECT_TRUE(decode("{\"x\": " + objects)->autoHide);
}

TEST(SettingsCoding, FailsForDepthThatNeverEndsOrIsOutOfPlace) {
    EXPECT_FALSE(decode(repeated("[", absurdDepth)));
    EXPECT_FALSE(decode(repeated("{\"x\":", absurdDepth)));
    EXPECT_FALSE(decode("{\"x\": " + repeated("[", absurdDepth)));
    EXPECT_FALSE(decode("{\"manualApps\": " + repeated("[", absurdDepth)));
    EXPECT_FALSE(decode("{\"position\": " + repeated("{\"position\":", absurdDepth)));
}

TEST(SettingsCoding, SaysWhatIsWrong) {
    EXPECT_NE(decode(R"({"iconSize": "44"})").error().description.find("iconSize"),
              std::string::npos);
    EXPECT_NE(decode(R"({"manualApps": [{}]})").error().description.find("manualApps"),
              std::string::npos);
    EXPECT_FALSE(decode("{").error().description.empty());
    EXPECT_FALSE(decode("[]").error().description.empty());
}

TEST(SettingsCoding, FailsForEveryTextCutShort) {
    const std::string whole = encode(unusualSettings());
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(decode(std::string_view{whole}.substr(0, length))) << length;
}

TEST(SettingsCoding, SurvivesAnyDamage) {
    test::Random random{7};
    const std::string whole = encode(unusualSettings());
    for (int round = 0; round < 5'000; ++round) {
        std::string text = whole;
        for (int flip = random.integer(1, 4); flip > 0; --flip) {
            const auto place =
                static_cast<std::size_t>(random.integer(0, static_cast<int>(text.size()) - 1));
            text[place] = static_cast<char>(random.integer(0, 255));
        }
        if (const auto settings = decode(text)) {
            EXPECT_EQ(decode(encode(*settings)), settings) << text;
        }
    }
}

TEST(SettingsCoding, KeepsRandomSettingsThroughWritingAndReading) {
    test::Random random{8};
    for (int round = 0; round < 500; ++round) {
        Settings settings;
        settings.schemaVersion = random.integer(-1'000, 1'000);
        settings.sourceMode = random.boolean() ? SourceMode::manual : SourceMode::mirror;
        settings.iconSize = random.real(-1e6, 1e6);
        settings.magnification = random.real(0, 3);
        settings.position = static_cast<DockPosition>(random.integer(0, 2));
        settings.autoHide = random.boolean();
        settings.summonOnClick = random.boolean();
        for (int apps = random.integer(0, 5); apps > 0; --apps) {
            std::string name(static_cast<std::size_t>(random.integer(0, 20)), ' ');
            std::ranges::generate(name, [&] { return static_cast<char>(random.integer(0, 127)); });
            settings.manualApps.push_back({"id" + std::to_string(apps), name, "/" + name});
        }
        EXPECT_EQ(decode(encode(settings)), settings);
    }
}

TEST(SettingsCoding, TakesNoKnownNameFromInsideAnUnknownMember) {
    EXPECT_EQ(decode(R"({"future": {"iconSize": 99, "autoHide": true, "position": "left",
                         "manualApps": [{"bundleID": "a", "name": "A", "path": "/a"}]},
                         "list": [{"iconSize": 99}]})"),
              Settings{});
}

TEST(SettingsCoding, WritesNamesAsTheyAre) {
    Settings settings;
    settings.manualApps = {{"b", "Größe 漢字", "/p"}};
    EXPECT_NE(encode(settings).find("\"Größe 漢字\""), std::string::npos);
}

}
}
