#include "Translation/DisplayNumbers.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using macos::DisplayNumbers::fromReported;

TEST(DisplayNumbers, TakeEveryUnsigned32BitNumber) {
    EXPECT_EQ(fromReported(0), 0U);
    EXPECT_EQ(fromReported(69733382), 69733382U);
    EXPECT_EQ(fromReported(4294967295), 4294967295U);
}

TEST(DisplayNumbers, RefuseWhatDoesNotFit) {
    EXPECT_EQ(fromReported(-1), std::nullopt);
    EXPECT_EQ(fromReported(4294967296), std::nullopt);
}

}
}
