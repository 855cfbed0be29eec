#include "Translation/ProcessFacts.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using namespace macos;

TEST(ProcessFacts, KnowTheActivationPolicies) {
    EXPECT_EQ(ProcessFacts::activationPolicy(0), ActivationPolicy::regular);
    EXPECT_EQ(ProcessFacts::activationPolicy(1), ActivationPolicy::accessory);
    EXPECT_EQ(ProcessFacts::activationPolicy(2), ActivationPolicy::prohibited);
}

TEST(ProcessFacts, TakeAnUnknownPolicyForAProcessWithoutAUserInterface) {
    EXPECT_EQ(ProcessFacts::activationPolicy(3), ActivationPolicy::prohibited);
    EXPECT_EQ(ProcessFacts::activationPolicy(-1), ActivationPolicy::prohibited);
}

TEST(ProcessFacts, PassAProcessIdentifierOn) {
    EXPECT_EQ(ProcessFacts::processIdentifier(4711), 4711);
}

TEST(ProcessFacts, CallAProcessUnknownThatIsNotThere) {
    EXPECT_EQ(ProcessFacts::processIdentifier(-1), 0);
    EXPECT_EQ(ProcessFacts::processIdentifier(0), 0);
}

}
}
