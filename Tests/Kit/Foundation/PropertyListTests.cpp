#include "Foundation/PropertyList.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

TEST(PropertyList, IsOneKindAndNoOther) {
    const PropertyList text{"a"};
    ASSERT_NE(text.string(), nullptr);
    EXPECT_EQ(*text.string(), "a");
    EXPECT_EQ(text.array(), nullptr);
    EXPECT_EQ(text.dictionary(), nullptr);

    const PropertyList list{PropertyList::Array{text, PropertyList{true}}};
    ASSERT_NE(list.array(), nullptr);
    EXPECT_EQ(list.array()->size(), 2U);
    EXPECT_EQ(list.string(), nullptr);
}

TEST(PropertyList, IsNothingReadableWhereEmptyOrOfAnotherKind) {
    for (const PropertyList& other :
         {PropertyList{}, PropertyList{true}, PropertyList{std::int64_t{3}}, PropertyList{1.5},
          PropertyList{PropertyList::Data{std::byte{1}}}}) {
        EXPECT_EQ(other.string(), nullptr);
        EXPECT_EQ(other.array(), nullptr);
        EXPECT_EQ(other.dictionary(), nullptr);
        EXPECT_EQ(other.find("a"), nullptr);
    }
}

TEST(PropertyList, FindsWhatADictionaryHolds) {
    const PropertyList inner{PropertyList::Dictionary{{"b", PropertyList{"value"}}}};
    const PropertyList outer{PropertyList::Dictionary{{"a", inner}}};
    ASSERT_NE(outer.find("a"), nullptr);
    EXPECT_EQ(*outer.find("a"), inner);
    EXPECT_EQ(*outer.find("a")->find("b")->string(), "value");
    EXPECT_EQ(outer.find("b"), nullptr);
}

TEST(PropertyList, ComparesByKindAndValue) {
    EXPECT_EQ(PropertyList{"a"}, PropertyList{std::string{"a"}});
    EXPECT_NE(PropertyList{"1"}, PropertyList{std::int64_t{1}});
    EXPECT_NE(PropertyList{true}, PropertyList{std::int64_t{1}});
    EXPECT_NE(PropertyList{1.0}, PropertyList{std::int64_t{1}});
    EXPECT_EQ(PropertyList{}, PropertyList{});
}

}
}
