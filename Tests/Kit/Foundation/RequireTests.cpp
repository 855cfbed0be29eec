#include "Foundation/Require.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

TEST(Require, GoesOnWhereTheConditionHolds) {
    require(true, "all is well");
}

TEST(RequireDeathTest, StopsTheProgramNamingThePlaceAndTheCondition) {
    EXPECT_DEATH(require(false, "the list is sorted"),
                 "RequireTests.cpp:[0-9]+: broken condition: the list is sorted");
}

}
}
