#include "Translation/TapEvents.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using namespace macos;

TEST(TapEvents, AskForMovesWithoutAButtonAndWithTheLeftOne) {
    EXPECT_EQ(TapEvents::mask, 0x60U);
}

TEST(TapEvents, TellTheKindsOfEventsApart) {
    EXPECT_EQ(TapEvents::kind(5), PointerTapEvent::mouseMoved);
    EXPECT_EQ(TapEvents::kind(6), PointerTapEvent::leftMouseDragged);
}

TEST(TapEvents, NoticeThatTheTapWasDisabled) {
    EXPECT_EQ(TapEvents::kind(0xFFFFFFFE), PointerTapEvent::tapDisabledByTimeout);
    EXPECT_EQ(TapEvents::kind(0xFFFFFFFF), PointerTapEvent::tapDisabledByUserInput);
}

TEST(TapEvents, IgnoreOtherEvents) {
    EXPECT_EQ(TapEvents::kind(1), std::nullopt);
    EXPECT_EQ(TapEvents::kind(0), std::nullopt);
}

}
}
