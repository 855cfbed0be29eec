#include "Interaction/WindowTitles.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using WindowTitles::maximumCharacters;
using WindowTitles::menuTitle;

std::string repeatedCharacter(std::string_view character, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += character;
    return text;
}

TEST(WindowTitles, KeepsATitleThatFits) {
    EXPECT_EQ(menuTitle("Notes – Editor", "Editor"), "Notes – Editor");
    EXPECT_EQ(menuTitle("Wow!~", "Editor"), "Wow!~") << "next to control characters";
    const std::string longest = repeatedCharacter("ä", maximumCharacters);
    EXPECT_EQ(menuTitle(longest, "Editor"), longest);
}

TEST(WindowTitles, ShortensALongTitleInTheMiddleBetweenCharacters) {
    const std::string title = repeatedCharacter("ä", 40) + repeatedCharacter("z", 40);

    EXPECT_EQ(menuTitle(title, "Editor"),
              repeatedCharacter("ä", 24) + "…" + repeatedCharacter("z", 23));
    EXPECT_EQ(menuTitle(repeatedCharacter("é", 80), "Editor"),
              repeatedCharacter("é", 24) + "…" + repeatedCharacter("é", 23));
}

TEST(WindowTitles, CallsAWindowWithoutATitleLikeItsApp) {
    EXPECT_EQ(menuTitle("", "Editor"), "Editor");
    EXPECT_EQ(menuTitle(" \n\t ", "Editor"), "Editor");
    EXPECT_EQ(menuTitle("", repeatedCharacter("x", 100)).size(), maximumCharacters - 1 + 3);
}

TEST(WindowTitles, PutsATitleIntoOneLine) {
    EXPECT_EQ(menuTitle(" a\nb\x7f"
                        "c ",
                        "Editor"),
              "a b c");
}

TEST(WindowTitles, SurvivesATitleThatIsNotUTF8) {
    EXPECT_EQ(menuTitle("\x80\xbf\xff", "Editor"), "\x80\xbf\xff");
}

}
}
