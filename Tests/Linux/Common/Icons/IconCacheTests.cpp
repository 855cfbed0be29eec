#include "Icons/Themes/IconCache.hpp"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace vireline::xdg {
namespace {

void append(std::string& bytes, std::uint32_t value, int size = 4) {
    for (int i = size - 1; i >= 0; --i) {
        bytes += static_cast<char>(value >> 8U * static_cast<unsigned>(i));
    }
}

/// A cache with one hash bucket whose chain contains "mail" (PNG and SVG in the second folder),
/// then "web" (SVG in both folders).
std::string cacheBytes() {
    std::string bytes;
    constexpr std::uint32_t hash = 12;
    constexpr std::uint32_t mail = 20;
    constexpr std::uint32_t web = 32;
    constexpr std::uint32_t mailList = 44;
    constexpr std::uint32_t webList = 56;
    constexpr std::uint32_t folders = 76;
    constexpr std::uint32_t texts = 88;
    append(bytes, 1, 2);
    append(bytes, 0, 2);
    append(bytes, hash);
    append(bytes, folders);
    for (const std::uint32_t value : {1U, mail}) {
        append(bytes, value);
    }
    for (const std::uint32_t value : {web, texts, mailList, 0xffffffffU, texts + 5, webList}) {
        append(bytes, value);
    }
    append(bytes, 1);
    append(bytes, 1, 2);
    append(bytes, 2 | 4, 2);
    append(bytes, 0);
    append(bytes, 2);
    for (const std::uint32_t folder : {0U, 1U}) {
        append(bytes, folder, 2);
        append(bytes, 2, 2);
        append(bytes, 0);
    }
    for (const std::uint32_t value : {2U, texts + 9, texts + 17}) {
        append(bytes, value);
    }
    return bytes + std::string("mail\0web\0a/small\0a/large\0", 25);
}

std::vector<IconCache::Place> find(const std::string& bytes, std::string_view icon) {
    return IconCache{std::as_bytes(std::span{bytes})}.find(icon);
}

TEST(IconCache, TellsWhereAnIconIs) {
    const std::string bytes = cacheBytes();
    EXPECT_EQ(find(bytes, "mail"), (std::vector<IconCache::Place>{{"a/large", true, true, false}}));
    EXPECT_EQ(find(bytes, "web"), (std::vector<IconCache::Place>{{"a/small", false, true, false},
                                                                 {"a/large", false, true, false}}));
    EXPECT_TRUE(find(bytes, "editor").empty());
    EXPECT_TRUE(find(bytes, "").empty());
}

TEST(IconCache, EndsAChainThatIsARing) {
    std::string bytes = cacheBytes();
    bytes[35] = 20;
    EXPECT_TRUE(find(bytes, "editor").empty());
}

TEST(IconCache, SurvivesEveryTruncation) {
    const std::string bytes = cacheBytes();
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        for (const char* icon : {"mail", "web", "editor"}) {
            EXPECT_LE(find(bytes.substr(0, length), icon).size(), 2U);
        }
    }
}

TEST(IconCache, SurvivesAnyBytes) {
    std::mt19937 random{5};
    std::uniform_int_distribution<std::size_t> place{0, cacheBytes().size() - 1};
    std::uniform_int_distribution<int> value{-128, 127};
    for (int turn = 0; turn < 20'000; ++turn) {
        std::string bytes = cacheBytes();
        for (int i = 0; i < 4; ++i) {
            bytes[place(random)] = static_cast<char>(value(random));
        }
        for (const char* icon : {"mail", "web"}) {
            EXPECT_LE(find(bytes, icon).size(), 1024U);
        }
    }
}

}
}
