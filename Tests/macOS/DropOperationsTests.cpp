#include "Translation/DropOperations.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

constexpr unsigned long privateOperation = 8;
constexpr unsigned long moveOperation = 16;
constexpr unsigned long deleteOperation = 32;

TEST(DropOperations, CopiesWhereItMay) {
    EXPECT_EQ(DropOperations::chosen(~0UL), DropOperations::copy);
    EXPECT_EQ(DropOperations::chosen(DropOperations::link | DropOperations::copy),
              DropOperations::copy);
}

TEST(DropOperations, TakesTheNextBestOtherwise) {
    EXPECT_EQ(DropOperations::chosen(DropOperations::link | DropOperations::generic),
              DropOperations::generic);
    EXPECT_EQ(DropOperations::chosen(DropOperations::link), DropOperations::link);
}

TEST(DropOperations, NeverHasTheSourceRemoveWhatWasDropped) {
    EXPECT_EQ(DropOperations::chosen(moveOperation | deleteOperation | privateOperation),
              DropOperations::none);
    EXPECT_EQ(DropOperations::chosen(0), DropOperations::none);
}

}
}
