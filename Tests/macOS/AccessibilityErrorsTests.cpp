#include "Translation/AccessibilityErrors.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace vireline {
namespace {

using macos::AccessibilityErrors::describe;

TEST(AccessibilityErrors, HaveAPhraseEach) {
    std::set<std::string> phrases;
    for (int code = -25214; code <= -25200; ++code)
        phrases.insert(describe(code));

    EXPECT_EQ(phrases.size(), 15U);
    EXPECT_FALSE(phrases.contains(describe(-1)));
}

TEST(AccessibilityErrors, ReportAnAppThatIsGoneOrDoesNotAnswer) {
    EXPECT_STREQ(describe(-25202), "element is gone");
    EXPECT_STREQ(describe(-25204), "no answer from the app");
}

TEST(AccessibilityErrors, CallAnyOtherNumberUnknown) {
    EXPECT_STREQ(describe(7), "unknown accessibility error");
}

}
}
