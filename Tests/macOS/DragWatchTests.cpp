#include "Translation/DragWatch.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

constexpr DragWatch::Look held{.isEscapeDown = false, .isPrimaryDown = true};
constexpr DragWatch::Look released{.isEscapeDown = false, .isPrimaryDown = false};
constexpr DragWatch::Look escape{.isEscapeDown = true, .isPrimaryDown = true};

TEST(DragWatch, GoesOnWhileTheButtonIsHeld) {
    DragWatch drag;

    for (int i = 0; i < 5; ++i)
        EXPECT_FALSE(drag.isTakenAway(held));
}

TEST(DragWatch, EscapeEndsIt) {
    DragWatch drag;
    EXPECT_FALSE(drag.isTakenAway(held));

    EXPECT_TRUE(drag.isTakenAway(escape));
}

TEST(DragWatch, AReleaseHasATurnToArrive) {
    DragWatch drag;

    EXPECT_FALSE(drag.isTakenAway(released));

    EXPECT_TRUE(drag.isTakenAway(released));
}

TEST(DragWatch, AButtonThatIsDownAgainCountsAsHeld) {
    DragWatch drag;
    EXPECT_FALSE(drag.isTakenAway(released));
    EXPECT_FALSE(drag.isTakenAway(held));

    EXPECT_FALSE(drag.isTakenAway(released));
}

}
}
