#include "Panels/DroppedText.hpp"

#include <gtest/gtest.h>

namespace vireline::xdg {
namespace {

using URLs = std::vector<std::string>;

constexpr std::string_view list = "text/uri-list";
constexpr std::string_view plainText = "text/plain";

URLs urls(std::string_view format, std::string_view content) {
    return DroppedText::urls(format, content, "ada-desk");
}

TEST(DroppedText, ReadsAListLineByLineInItsOrder) {
    EXPECT_EQ(urls(list, "file:///b\r\nfile:///a\r\n"), (URLs{"file:///b", "file:///a"}));
}

TEST(DroppedText, PassesOverCommentsAndEmptyLines) {
    EXPECT_EQ(urls(list, "# from here\r\n\r\nfile:///a\n \nfile:///b"),
              (URLs{"file:///a", "file:///b"}));
}

TEST(DroppedText, LeavesOutTheZeroBytesAtTheEnd) {
    EXPECT_EQ(urls(list, std::string_view{"file:///a\r\n\0\0", 13}), URLs{"file:///a"});
}

TEST(DroppedText, KeepsOtherURLsInAList) {
    EXPECT_EQ(urls(list, "https://example.org/a\nfile:///a"),
              (URLs{"https://example.org/a", "file:///a"}));
}

TEST(DroppedText, TakesThisComputersNameOutOfFileURLs) {
    EXPECT_EQ(urls(list, "file://ada-desk/a\nfile://other/b\nfile://ada-desk2/c\nfile://ada-desk"),
              (URLs{"file:///a", "file://other/b", "file://ada-desk2/c", "file://ada-desk"}));
}

TEST(DroppedText, TakesNoNameOutWhereTheComputerHasNone) {
    EXPECT_EQ(DroppedText::urls(list, "file:///a", ""), URLs{"file:///a"});
}

TEST(DroppedText, ReadsPathsAndFileURLsFromPlainText) {
    EXPECT_EQ(urls(plainText, "/home/ada/a b\nfile:///c\n"),
              (URLs{"file:///home/ada/a%20b", "file:///c"}));
}

TEST(DroppedText, FindsNoFilesInTextThatOnlyMentionsSome) {
    EXPECT_EQ(urls(plainText, "See also\n/home/ada/a"), URLs{});
    EXPECT_EQ(urls(plainText, "https://example.org/a"), URLs{});
    EXPECT_EQ(urls("UTF8_STRING", "a/relative/path"), URLs{});
}

TEST(DroppedText, FindsNothingInNothing) {
    EXPECT_EQ(urls(list, ""), URLs{});
    EXPECT_EQ(urls(plainText, "\n\r\n"), URLs{});
}

TEST(DroppedText, SurvivesEveryByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    EXPECT_LE(urls(list, bytes).size(), 2U);
    EXPECT_EQ(urls(plainText, bytes), URLs{});
}

}
}
