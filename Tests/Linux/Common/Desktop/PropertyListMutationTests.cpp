/// Decodes randomly damaged property lists. This must terminate without sanitizer errors and be
/// deterministic.
#include "Desktop/PropertyLists/PropertyListReader.hpp"
#include "Linux/Common/Desktop/BinaryPropertyList.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>

namespace vireline::xdg {
namespace {

using test::BinaryPropertyList;
using test::bytesOf;

const std::string& xmlDock() {
    static const std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST "
        "1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n"
        "<dict>\n<!-- a comment -->\n<key>persistent-apps</key>\n<array>\n<dict>\n"
        "<key>GUID</key><integer>3735928559</integer>\n<key>tile-data</key>\n<dict>\n"
        "<key>book</key><data>Ym9vaxADAAAAAAQQMAAAAA==</data>\n"
        "<key>file-data</key><dict><key>_CFURLString</key>"
        "<string>file:///Applications/Mail.app/</string><key>_CFURLStringType</key>"
        "<integer>15</integer></dict>\n<key>file-label</key>"
        "<string>M&#228;il &amp; <![CDATA[more <x>]]></string>\n"
        "<key>bundle-identifier</key><string>com.apple.mail</string>\n"
        "<key>file-mod-date</key><date>2024-01-02T03:04:05Z</date><key>is-beta</key><false/>"
        "<key>tilesize</key><real>48.5</real></dict>\n<key>tile-type</key>"
        "<string>file-tile</string>\n</dict>\n</array>\n<key>autohide</key><true/>\n</dict>\n"
        "</plist>\n";
    return text;
}

std::string binaryDock() {
    BinaryPropertyList plist;
    const auto url =
        plist.dictionary({plist.text("_CFURLString"), plist.text("type")},
                         {plist.text("file:///Applications/Mail.app/"), plist.add("\x10\x0F")});
    const auto label =
        plist.add(BinaryPropertyList::marked(0x6, 2) + std::string{"\0M\x20\xAC", 4});
    const auto date = plist.add(std::string{"\x33\x41\0\0\0\0\0\0\0", 9});
    const auto data = plist.add(BinaryPropertyList::marked(0x4, 20) + std::string(20, 'b'));
    const auto tileData = plist.dictionary(
        {plist.text("file-data"), plist.text("file-label"), plist.text("date"), plist.text("book")},
        {url, label, date, data});
    const auto tile = plist.dictionary({plist.text("tile-data"), plist.text("is-beta")},
                                       {tileData, plist.add("\x08")});
    const auto apps = plist.array({tile, tile, tile});
    return plist.file(plist.dictionary({plist.text("persistent-apps")}, {apps}));
}

/// Damages text in the ways in which real or crafted files are damaged.
class Mutation {
public:
    explicit Mutation(unsigned seed) : random_(seed) {}

    std::string done(std::string text) {
        for (std::size_t count = below(8) + 1; count > 0 && !text.empty(); --count)
            once(text);
        return text;
    }

private:
    std::size_t below(std::size_t bound) {
        return std::uniform_int_distribution<std::size_t>{0, bound - 1}(random_);
    }

    void once(std::string& text) {
        const std::size_t at = below(text.size());
        const std::size_t length = std::min(below(64) + 1, text.size() - at);
        switch (below(7)) {
        case 0:
            text[at] = static_cast<char>(below(256));
            break;
        case 1:
            text[at] = static_cast<char>(text[at] ^ (1 << below(8)));
            break;
        case 2:
            text.erase(at, length);
            break;
        case 3:
            text.insert(below(text.size()), text.substr(at, length));
            break;
        case 4:
            text.resize(at);
            break;
        case 5:
            text.insert(at, std::array{"<array>", "</dict>", "<key>", "<!--", "<![CDATA[", "&#x",
                                       "<integer>", "<date>", "\xFF\xFF\xFF\xFF",
                                       "<real/>"}[below(10)]);
            break;
        default:
            // The trailer determines how everything else is read.
            text[text.size() - 1 - std::min(below(32), text.size() - 1)] =
                static_cast<char>(below(256));
            break;
        }
    }

    std::mt19937 random_;
};

void readTwice(const std::string& bytes, unsigned seed) {
    const PropertyListReader reader;
    // At the end of its own allocation, so that reading past it is detected.
    const std::vector<char> exact(bytes.begin(), bytes.end());
    const auto first = reader.decode(std::as_bytes(std::span{exact}));
    const auto second = reader.decode(bytesOf(bytes));
    ASSERT_EQ(first.has_value(), second.has_value()) << "seed " << seed;
}

class PropertyListMutation : public testing::TestWithParam<unsigned> {};

TEST_P(PropertyListMutation, IsSurvivedInXML) {
    for (unsigned seed = GetParam(); seed < GetParam() + 2'000; ++seed)
        readTwice(Mutation{seed}.done(xmlDock()), seed);
}

TEST_P(PropertyListMutation, IsSurvivedInBinary) {
    const std::string dock = binaryDock();
    for (unsigned seed = GetParam(); seed < GetParam() + 2'000; ++seed)
        readTwice(Mutation{seed}.done(dock), seed);
}

TEST_P(PropertyListMutation, IsSurvivedInNoise) {
    std::mt19937 random{GetParam()};
    for (int i = 0; i < 2'000; ++i) {
        std::string noise = i % 2 == 0 ? "bplist00" : "<plist>";
        for (std::size_t length = random() % 300; length > 0; --length)
            noise += static_cast<char>(random() % 256);
        readTwice(noise, GetParam());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PropertyListMutation, testing::Values(1U, 100'000U, 200'000U));

TEST(PropertyListMutation, StartsFromPropertyListsThatCanBeRead) {
    const PropertyListReader reader;

    const auto fromXML = reader.decode(bytesOf(xmlDock()));
    const auto fromBinary = reader.decode(bytesOf(binaryDock()));

    ASSERT_TRUE(fromXML) << fromXML.error();
    ASSERT_TRUE(fromBinary) << fromBinary.error();
    EXPECT_EQ(fromXML->find("persistent-apps")->array()->size(), 1U);
    EXPECT_EQ(fromBinary->find("persistent-apps")->array()->size(), 3U);
}

}
}
