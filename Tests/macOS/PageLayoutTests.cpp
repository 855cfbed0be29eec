#include "Translation/PageLayout.hpp"

#include <gtest/gtest.h>

#include <array>

namespace vireline {
namespace {

using namespace macos;

constexpr Size page{560, 480};

TEST(PageLayout, KeepsTwoNestedPaddingsFree) {
    EXPECT_EQ(PageLayout::padding, 32 + 16);
    EXPECT_EQ(PageLayout::width(page), 464);
}

TEST(PageLayout, PutsAFeaturesTextBesideItsSymbol) {
    const auto frames = PageLayout::featureRow(page, 100, 32);

    EXPECT_EQ(frames.symbol, (Rect{48, 105, 22, 22}));
    EXPECT_EQ(frames.text, (Rect{82, 100, 430, 32}));
    EXPECT_EQ(frames.bottom, 132);
}

TEST(PageLayout, NeverMakesAFeaturesRowLowerThanItsSymbol) {
    EXPECT_EQ(PageLayout::featureRow(page, 100, 16).bottom, 122);
}

TEST(PageLayout, PutsOneDotAPageIntoTheBottomLine) {
    const auto dots = PageLayout::dots(page, 3);

    ASSERT_EQ(dots.size(), 3U);
    EXPECT_EQ(dots.front(), (Rect{48, 412.5, 7, 7}));
    EXPECT_EQ(dots.back(), (Rect{76, 412.5, 7, 7}));
}

TEST(PageLayout, PutsTheButtonsAtTheEndOfTheBottomLine) {
    const std::array sizes{Size{60, 24}, Size{90, 24}};

    const auto frames = PageLayout::buttons(page, sizes);

    EXPECT_EQ(frames, (std::vector<Rect>{{354, 404, 60, 24}, {422, 404, 90, 24}}));
}

}
}
