#include "Translation/FormLayout.hpp"

#include <gtest/gtest.h>

#include <array>

namespace vireline {
namespace {

using namespace macos;

TEST(FormLayout, LeavesMarginAndPaddingAroundARow) {
    EXPECT_EQ(FormLayout::rowWidth(480), 416);
}

TEST(FormLayout, PutsTitleAndControlIntoOneLineEachInItsMiddle) {
    const auto frames = FormLayout::row(416, {.titleHeight = 16, .control = {40, 22}});

    EXPECT_EQ(frames.title, (Rect{0, 12, 368, 16}));
    EXPECT_EQ(frames.control, (Rect{376, 9, 40, 22}));
    EXPECT_EQ(frames.height, 9 + 22 + 9);
}

TEST(FormLayout, GrowsWithATitleOfSeveralLines) {
    const auto frames = FormLayout::row(416, {.titleHeight = 48, .control = {40, 22}});

    EXPECT_EQ(frames.title.y, 9);
    EXPECT_EQ(frames.control.midY(), frames.title.midY());
    EXPECT_EQ(frames.height, 9 + 48 + 9);
}

TEST(FormLayout, PutsTheCaptionBelowTheControlAndTheStatusBelowTheCaption) {
    const auto frames = FormLayout::row(
        416, {.titleHeight = 16, .control = {40, 22}, .captionHeight = 28, .statusHeight = 20});

    EXPECT_EQ(frames.caption, (Rect{0, 35, 416, 28}));
    EXPECT_EQ(frames.status, (Rect{0, 71, 416, 20}));
    EXPECT_EQ(frames.height, 71 + 20 + 9);
}

TEST(FormLayout, StacksRowsAndSeparatesThem) {
    const std::array<double, 3> heights{40, 60, 50};

    const auto frames = FormLayout::section(480, 100, 16, heights);

    EXPECT_EQ(frames.title, (Rect{20, 100, 440, 16}));
    EXPECT_EQ(frames.box, (Rect{20, 122, 440, 150}));
    EXPECT_EQ(frames.rowTops, (std::vector<double>{0, 40, 100}));
    EXPECT_EQ(frames.separators, (std::vector<Rect>{{12, 40, 416, 1}, {12, 100, 416, 1}}));
    EXPECT_EQ(frames.bottom, 272);
}

TEST(FormLayout, SeparatesNothingInASectionOfOneRow) {
    const std::array<double, 1> heights{40};

    EXPECT_TRUE(FormLayout::section(480, 0, 16, heights).separators.empty());
}

TEST(FormLayout, PutsTheLastPartOfATrailingLineAtItsEnd) {
    const std::array parts{Size{50, 20}, Size{80, 30}};

    const auto frames = FormLayout::trailingLine({512, 400}, 32, parts, 8);

    EXPECT_EQ(frames, (std::vector<Rect>{{374, 406, 50, 20}, {432, 401, 80, 30}}));
}

TEST(FormLayout, AcceptsAnEmptyLine) {
    EXPECT_TRUE(FormLayout::line({}, 10, {}, 8).empty());
    EXPECT_TRUE(FormLayout::trailingLine({}, 10, {}, 8).empty());
}

}
}
