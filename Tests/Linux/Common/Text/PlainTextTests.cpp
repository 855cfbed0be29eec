#include "Text/PlainText.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

namespace PlainText = xdg::PlainText;

TEST(PlainText, LeavesGoodTextAlone) {
    EXPECT_EQ(PlainText::clean("Größe 漢字"), "Größe 漢字");
}

TEST(PlainText, TakesOtherBytesForLatin1) {
    EXPECT_EQ(PlainText::clean("Gr\xf6\xdf"
                               "e"),
              "Größe");
}

TEST(PlainText, CannotBreakALogLine) {
    EXPECT_EQ(PlainText::clean("a\n[forged] b\x1b\x7f"), "a [forged] b");
}

TEST(PlainText, CutsBetweenCharacters) {
    EXPECT_EQ(PlainText::clean("äää", 5), "ää");
    EXPECT_EQ(PlainText::clean("ääääääääääää", 5), "ää");
    EXPECT_EQ(PlainText::clean("x漢漢漢漢漢漢", 6), "x漢");
}

TEST(PlainText, NothingButBlanksIsEmpty) {
    EXPECT_EQ(PlainText::clean("  \t\n "), "");
}

TEST(PlainText, KnowsWhatIsClean) {
    EXPECT_TRUE(PlainText::isClean("org.gnome.Nautilus"));
    EXPECT_FALSE(PlainText::isClean("tab\tbed"));
    EXPECT_FALSE(PlainText::isClean("\xff"));
    EXPECT_FALSE(PlainText::isClean(std::string(257, 'x')));
}

}
}
