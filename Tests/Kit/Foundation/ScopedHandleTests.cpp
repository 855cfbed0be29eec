#include "Foundation/ScopedHandle.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

TEST(ScopedHandle, EndsOnceWhenItIsDropped) {
    int ends = 0;
    {
        Subscription handle = Subscription::calling([&] { ++ends; });
        EXPECT_TRUE(handle);
        EXPECT_EQ(ends, 0);
    }
    EXPECT_EQ(ends, 1);
}

TEST(ScopedHandle, EndsOnceWhenItIsReset) {
    int ends = 0;
    {
        Subscription handle = Subscription::calling([&] { ++ends; });
        handle.reset();
        EXPECT_FALSE(handle);
        EXPECT_EQ(ends, 1);
        handle.reset();
    }
    EXPECT_EQ(ends, 1);
}

TEST(ScopedHandle, EndsOnlyWhereItWasMovedTo) {
    int ends = 0;
    Subscription target;
    EXPECT_FALSE(target);
    {
        Subscription source = Subscription::calling([&] { ++ends; });
        target = std::move(source);
    }
    EXPECT_EQ(ends, 0);
    target.reset();
    EXPECT_EQ(ends, 1);
}

TEST(ScopedHandle, EndsWhatItHeldWhenAnotherIsAssigned) {
    int firstEnds = 0;
    int secondEnds = 0;
    Subscription handle = Subscription::calling([&] { ++firstEnds; });
    handle = Subscription::calling([&] { ++secondEnds; });
    EXPECT_EQ(firstEnds, 1);
    EXPECT_EQ(secondEnds, 0);
}

TEST(ScopedHandle, IsEmptyWhileItsEndIsCalled) {
    Subscription handle;
    bool wasSet = true;
    handle = Subscription::calling([&] {
        wasSet = static_cast<bool>(handle);
        handle.reset();
    });
    handle.reset();
    EXPECT_FALSE(wasSet);
}

}
}
