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
        EXPECT_FALSE(drag.isCancelled(held));
}

TEST(DragWatch, EscapeEndsIt) {
    DragWatch drag;
    EXPECT_FALSE(drag.isCancelled(held));

    EXPECT_TRUE(drag.isCancelled(escape));
}

TEST(DragWatch, AReleaseHasATurnToArrive) {
    DragWatch drag;

    EXPECT_FALSE(drag.isCancelled(released));

    EXPECT_TRUE(drag.isCancelled(released));
}

TEST(DragWatch, AButtonThatIsDownAgainCountsAsHeld) {
    DragWatch drag;
    EXPECT_FALSE(drag.isCancelled(released));
    EXPECT_FALSE(drag.isCancelled(held));

    EXPECT_FALSE(drag.isCancelled(released));
}

}
}
