/// What the tests of `Accessibility`'s contract share under every window system.
#pragma once

#include "Foundation/Result.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace vireline::contract {

/// A program that was started; it calls its windows by number, the oldest 0.
struct Program {
    std::string bundleID;
    /// 0 when the port cannot know it.
    std::int32_t process = 0;
};

template <class Value>
[[nodiscard]] testing::AssertionResult fails(const Result<Value>& outcome) {
    if (outcome)
        return testing::AssertionFailure() << "it succeeds";
    if (outcome.error().code == 0 || outcome.error().description.empty())
        return testing::AssertionFailure()
               << "the error has no code or no description: " << outcome.error();
    return testing::AssertionSuccess();
}

}
