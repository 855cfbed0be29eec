#include "Foundation/ReplacementNames.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace vireline {
namespace {

TEST(ReplacementNames, HideTheFileAndSayWhoseItIs) {
    EXPECT_EQ(ReplacementNames::name("a.json", 0x12ab), ".a.json.00000000000012ab.vireline-save");
}

TEST(ReplacementNames, AreKnownAgainWhateverTheToken) {
    constexpr auto largest = std::numeric_limits<std::uint64_t>::max();
    for (const std::uint64_t token : {std::uint64_t{0}, std::uint64_t{1}, largest})
        EXPECT_TRUE(ReplacementNames::isName(ReplacementNames::name("a.json", token), "a.json"));
}

TEST(ReplacementNames, BelongToOneFileAlone) {
    EXPECT_FALSE(ReplacementNames::isName(ReplacementNames::name("a.json", 1), "b.json"));
    EXPECT_FALSE(ReplacementNames::isName(ReplacementNames::name("a.json", 1), "a"));
}

TEST(ReplacementNames, AreOfOneFormAlone) {
    for (const auto* candidate : {
             "",
             "a.json",
             ".a.json.00000000000012ab",
             ".a.json.00000000000012ab.vireline-sav",
             ".a.json.00000000000012ab.vireline-save~",
             ".a.json.0000000000012ab.vireline-save",
             ".a.json.000000000000012ab.vireline-save",
             ".a.json.00000000000012AB.vireline-save",
             ".a.json.00000000000012ag.vireline-save",
             "xa.json.00000000000012ab.vireline-save",
             ".a.json-00000000000012ab.vireline-save",
         })
        EXPECT_FALSE(ReplacementNames::isName(candidate, "a.json")) << candidate;
}

}
}
