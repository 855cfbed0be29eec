#include "Desktop/PropertyLists/PropertyListLimits.hpp"
#include "Desktop/PropertyLists/PropertyListReader.hpp"
#include "Linux/Common/Desktop/BinaryPropertyList.hpp"
#include "Sources/DockPreferencesReader.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <string>

namespace vireline::xdg {
namespace {

using test::BinaryPropertyList;
using test::bytesOf;
using Array = PropertyList::Array;
using Dictionary = PropertyList::Dictionary;

Result<PropertyList> decode(std::string_view bytes) {
    return PropertyListReader{}.decode(bytesOf(bytes));
}

std::string xml(std::string_view content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
           "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
           "<plist version=\"1.0\">" +
           std::string{content} + "</plist>\n";
}

std::string repeated(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// Whether the bytes are rejected within an unnoticeable time, even in a debug build.
bool isRefusedQuickly(std::string_view bytes) {
    const auto start = std::chrono::steady_clock::now();
    const bool isRefused = !decode(bytes);
    return isRefused && std::chrono::steady_clock::now() - start < std::chrono::seconds{2};
}

TEST(PropertyListReader, ReadsEveryKindOfValueFromXML) {
    const auto list = decode(xml("<dict><key>apps</key><array><string>a &amp; b</string>"
                                 "<integer>-7</integer><real>1.5</real><true/><false/>"
                                 "<data>AQL/</data><date>2024-01-02T03:04:05Z</date></array>"
                                 "<key>none</key><dict/></dict>"));

    ASSERT_TRUE(list) << list.error();
    const PropertyList expected{Dictionary{
        {"apps", PropertyList{Array{
                     PropertyList{"a & b"}, PropertyList{std::int64_t{-7}}, PropertyList{1.5},
                     PropertyList{true}, PropertyList{false},
                     PropertyList{PropertyList::Data{std::byte{1}, std::byte{2}, std::byte{255}}},
                     PropertyList{}}}},
        {"none", PropertyList{Dictionary{}}}}};
    EXPECT_EQ(*list, expected);
}

TEST(PropertyListReader, ReadsEveryKindOfValueFromBinary) {
    BinaryPropertyList plist;
    const auto key = plist.text("apps");
    const auto text = plist.text("a long text, whose length stands behind its marker");
    const auto utf16 = plist.add(BinaryPropertyList::marked(0x6, 1) + "\x20\xAC");
    const auto integer = plist.add("\x13\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xF9");
    const auto real = plist.add(std::string{"\x23\x3F\xF8\0\0\0\0\0\0", 9});
    const auto yes = plist.add("\x09");
    const auto data = plist.add("\x42\x01\xFF");
    const auto date = plist.add(std::string{"\x33\x41\0\0\0\0\0\0\0", 9});
    const auto uid = plist.add("\x80\x05");
    const auto array = plist.array({text, utf16, integer, real, yes, data, date, uid});
    const auto root = plist.dictionary({key}, {array});

    const auto list = decode(plist.file(root));

    ASSERT_TRUE(list) << list.error();
    const PropertyList expected{Dictionary{
        {"apps",
         PropertyList{Array{PropertyList{"a long text, whose length stands behind its marker"},
                            PropertyList{"€"}, PropertyList{std::int64_t{-7}}, PropertyList{1.5},
                            PropertyList{true},
                            PropertyList{PropertyList::Data{std::byte{1}, std::byte{255}}},
                            PropertyList{}, PropertyList{}}}}}};
    EXPECT_EQ(*list, expected);
}

TEST(PropertyListReader, RefusesOtherFormats) {
    for (const std::string_view bytes :
         {std::string_view{}, std::string_view{"no property list"}, std::string_view{"{ a = b; }"},
          std::string_view{"\0\0\0\0", 4}, std::string_view{"<plist>"},
          std::string_view{"<html></html>"}, std::string_view{"<plist><array></dict></plist>"},
          std::string_view{"bplist00"},
          std::string_view{"bplist99 and so on, long enough to have a trailer, or so it seems"}}) {
        const auto list = decode(bytes);
        EXPECT_FALSE(list) << bytes;
    }
}

TEST(PropertyListReader, MendsTextThatIsNoUTF8) {
    const auto list = decode(xml("<dict><key>la\xFF"
                                 "bel</key><string>\xC3(</string></dict>"));

    ASSERT_TRUE(list) << list.error();
    EXPECT_EQ(*list, (PropertyList{Dictionary{{"la\uFFFDbel", PropertyList{"\uFFFD("}}}}));
}

TEST(PropertyListReader, ReadsAsDeepAsTheLimitAndNoDeeper) {
    const auto nested = [](int depth) {
        return xml(repeated("<array>", depth) + "<true/>" + repeated("</array>", depth));
    };

    EXPECT_TRUE(decode(nested(PropertyListLimits::maximumDepth)));
    EXPECT_FALSE(decode(nested(PropertyListLimits::maximumDepth + 1)));
    EXPECT_FALSE(decode(nested(static_cast<int>(PropertyListLimits::maximumContainers))));
}

TEST(PropertyListReader, RefusesEndlessNestingInXML) {
    EXPECT_TRUE(isRefusedQuickly(xml(repeated("<array>", 100'000))));
    EXPECT_TRUE(isRefusedQuickly(
        xml(repeated("<array>", 100'000) + "<true/>" + repeated("</array>", 100'000))));
    EXPECT_TRUE(isRefusedQuickly(
        xml(repeated("<dict><key>k</key>", 100'000) + repeated("</dict>", 100'000))));
    // The closing tags are in comments, where the parser does not see them.
    EXPECT_TRUE(isRefusedQuickly(xml(repeated("<array><!--</array>-->", 100'000))));
    EXPECT_TRUE(isRefusedQuickly(xml(repeated("<array><? \"?></array>\" ?>", 100'000))));
}

TEST(PropertyListReader, RefusesEndlessNestingInBinary) {
    BinaryPropertyList plist;
    auto inner = plist.text("core");
    for (int i = 0; i < 100'000; ++i)
        inner = plist.array({inner});

    EXPECT_TRUE(isRefusedQuickly(plist.file(inner)));
}

TEST(PropertyListReader, RefusesValuesThatHoldThemselves) {
    BinaryPropertyList direct;
    EXPECT_TRUE(isRefusedQuickly(direct.file(direct.array({direct.next()}))));

    BinaryPropertyList indirect;
    const auto first = indirect.array({1});
    indirect.array({first, first});
    EXPECT_TRUE(isRefusedQuickly(indirect.file(first)));

    BinaryPropertyList byKey;
    EXPECT_TRUE(isRefusedQuickly(byKey.file(byKey.dictionary({byKey.next()}, {byKey.next()}))));
}

TEST(PropertyListReader, RefusesFewValuesThatStandForVeryMany) {
    BinaryPropertyList plist;
    auto inner = plist.text("ha");
    for (int i = 0; i < 40; ++i)
        inner = plist.array({inner, inner, inner, inner});

    EXPECT_TRUE(isRefusedQuickly(plist.file(inner)));
}

TEST(PropertyListReader, RefusesOneLongTextThatIsReferredToVeryOften) {
    BinaryPropertyList plist;
    const auto text = plist.text(std::string(60'000, 'x'));
    const auto root = plist.array(std::vector<std::uint32_t>(60'000, text));

    EXPECT_TRUE(isRefusedQuickly(plist.file(root)));
}

TEST(PropertyListReader, RefusesCountsThatLieOutsideOfTheFile) {
    using namespace std::string_literals;
    std::vector<std::string> values{"\x5F\x13\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s, "\x4F\x14"s,
                                    BinaryPropertyList::marked(0x5, 14),         "\x1F"s,
                                    BinaryPropertyList::marked(0x2, 4),          "\xA1"s};
    for (const unsigned kind : {0x4U, 0x5U, 0x6U, 0xAU, 0xDU}) {
        values.push_back(BinaryPropertyList::number(kind << 4U | 0xFU, 1) +
                         "\x13\x40\x00\x00\x00\x00\x00\x00\x01"s);
    }

    for (const std::string& value : values) {
        BinaryPropertyList plist;
        EXPECT_FALSE(decode(plist.file(plist.add(value))));
    }
}

TEST(PropertyListReader, RefusesAZeroWithinAName) {
    BinaryPropertyList plist;
    const auto key = plist.add(BinaryPropertyList::marked(0x6, 3) + std::string{"\0a\0\0\0b", 6});

    EXPECT_FALSE(decode(plist.file(plist.dictionary({key}, {key}))));
}

TEST(PropertyListReader, RefusesManyEqualKeysBeforeTheyCostTime) {
    std::string entries;
    for (int i = 0; i < 200'000; ++i)
        entries += "<key>k" + std::to_string(i % 100'000) + "</key><true/>";

    EXPECT_TRUE(isRefusedQuickly(xml("<dict>" + entries + "</dict>")));
}

TEST(PropertyListReader, TakesLittleTimeForAllThatTheLimitsAdmit) {
    std::string entries;
    const int pairs = static_cast<int>(PropertyListLimits::maximumValues / 3) - 10;
    for (int i = 0; i < pairs; ++i)
        entries += "<key>k" + std::to_string(i < pairs / 2 ? i : pairs / 2) + "</key><true/>";
    const std::string bytes = xml("<dict>" + entries + "</dict>");

    // CPU time, so that other load on the machine does not matter.
    const std::clock_t start = std::clock();
    EXPECT_TRUE(decode(bytes));

    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

TEST(PropertyListReader, RefusesWhatIsTooLong) {
    const std::string padding(PropertyListLimits::maximumBytes, ' ');

    const auto list = decode(xml("<true/>") + padding);

    ASSERT_FALSE(list);
    EXPECT_EQ(list.error().code, static_cast<int>(std::errc::file_too_large));
}

TEST(PropertyListReader, ReadsLargeDocks) {
    std::string tiles;
    for (int i = 0; i < 500; ++i) {
        tiles += "<dict><key>GUID</key><integer>1</integer><key>tile-data</key><dict>"
                 "<key>book</key><data>" +
                 repeated("QUJD", 500) +
                 "</data><key>file-data</key><dict><key>_CFURLString</key>"
                 "<string>file:///Applications/A.app/</string></dict>"
                 "<key>file-label</key><string>A</string></dict></dict>";
    }

    const auto list =
        decode(xml("<dict><key>persistent-apps</key><array>" + tiles + "</array></dict>"));

    ASSERT_TRUE(list) << list.error();
    EXPECT_EQ(list->find("persistent-apps")->array()->size(), 500U);
}

// Behaviour: dock-preferences-reader-4
TEST(PropertyListReader, DistinguishesADockWithoutTilesFromAnInvalidPropertyList) {
    const auto parse = [](std::string_view bytes) {
        return DockPreferencesReader::parse(bytesOf(bytes), PropertyListReader{});
    };

    EXPECT_EQ(parse(xml("<dict/>")), std::vector<ParsedDockEntry>{});
    EXPECT_FALSE(parse("no property list"));
    EXPECT_FALSE(parse(""));
}

}
}
