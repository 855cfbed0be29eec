#include "Views/Input/DemoCursor.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

TEST(DemoCursor, ReadsADecimalNumber) {
    EXPECT_EQ(demoCursorFraction("0.5"), 0.5);
    EXPECT_EQ(demoCursorFraction("1"), 1.0);
    EXPECT_EQ(demoCursorFraction(".25"), 0.25);
    EXPECT_EQ(demoCursorFraction("+2.5e-1"), 0.25);
    EXPECT_EQ(demoCursorFraction("-1"), -1.0);
}

// Behaviour: dock-strip-7
TEST(DemoCursor, AcceptsOnlyDecimalNumbers) {
    for (const char* text :
         {"",    " 0.5",   "\t0.5", "\n0.5", "\v0.5", "\f0.5", "\r0.5", "0.5 ", "abc",   "0.5x",
          "0,5", "0x1p-1", "inf",   "nan",   "1e",    "e1",    ".",     "-",    "0.5.5", "1e999"}) {
        EXPECT_EQ(demoCursorFraction(text), std::nullopt) << '"' << text << '"';
    }
}

}
}
