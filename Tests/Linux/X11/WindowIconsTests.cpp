#include "Applications/WindowIcons.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using Items = std::vector<std::uint32_t>;
namespace WindowIcons = x11::WindowIcons;

void append(Items& items, std::uint32_t width, std::uint32_t height, std::size_t pixels) {
    items.push_back(width);
    items.push_back(height);
    items.insert(items.end(), pixels, 0xff336699);
}

TEST(WindowIcons, ComeSmallestFirst) {
    Items items;
    append(items, 4, 4, 16);
    append(items, 1, 2, 2);

    const auto icons = WindowIcons::parse(items);

    ASSERT_EQ(icons.size(), 2U);
    EXPECT_EQ(icons[0], (xdg::WindowIcon{1, 2, Items(2, 0xff336699)}));
    EXPECT_EQ(icons[1].width, 4U);
}

TEST(WindowIcons, ReadingEndsWhereAPictureIsCutOff) {
    Items items;
    append(items, 2, 2, 4);
    append(items, 3, 3, 8);

    EXPECT_EQ(WindowIcons::parse(items).size(), 1U);
}

TEST(WindowIcons, ASizeWhoseProductOverflowsIsRefused) {
    EXPECT_TRUE(WindowIcons::parse(Items{0x10000, 0x10000, 0}).empty());
    EXPECT_TRUE(WindowIcons::parse(Items{0xffffffff, 0xffffffff, 0}).empty());
}

TEST(WindowIcons, AnEmptyPictureIsRefused) {
    EXPECT_TRUE(WindowIcons::parse(Items{0, 4, 1, 2, 3, 4}).empty());
    EXPECT_TRUE(WindowIcons::parse(Items{}).empty());
    EXPECT_TRUE(WindowIcons::parse(Items{1}).empty());
    EXPECT_TRUE(WindowIcons::parse(Items{1, 1}).empty());
}

TEST(WindowIcons, OnlySoManyAreTaken) {
    Items items;
    for (int i = 0; i < 1000; ++i)
        append(items, 1, 1, 1);

    EXPECT_EQ(WindowIcons::parse(items).size(), WindowIcons::maximumCount);
}

}
}
