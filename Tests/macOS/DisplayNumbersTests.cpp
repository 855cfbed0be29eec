#include "Translation/DisplayNumbers.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

namespace DisplayNumbers = macos::DisplayNumbers;

TEST(DisplayNumbers, TakeEveryUnsigned32BitNumber) {
    EXPECT_EQ(DisplayNumbers::fromReported(0), 0U);
    EXPECT_EQ(DisplayNumbers::fromReported(69733382), 69733382U);
    EXPECT_EQ(DisplayNumbers::fromReported(4294967295), 4294967295U);
}

TEST(DisplayNumbers, RefuseWhatDoesNotFit) {
    EXPECT_EQ(DisplayNumbers::fromReported(-1), std::nullopt);
    EXPECT_EQ(DisplayNumbers::fromReported(4294967296), std::nullopt);
}

}
}
