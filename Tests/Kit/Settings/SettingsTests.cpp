#include "Settings/Settings.hpp"
#include "Support/Printing.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace vireline {
namespace {

TEST(Settings, ReadTheModesTheyWrite) {
    for (const SourceMode mode : {SourceMode::mirror, SourceMode::manual})
        EXPECT_EQ(sourceMode(rawValue(mode)), mode);
    EXPECT_EQ(rawValue(SourceMode::mirror), "mirror");
    EXPECT_EQ(rawValue(SourceMode::manual), "manual");
}

TEST(Settings, ReadThePositionsTheyWrite) {
    for (const DockPosition position :
         {DockPosition::bottom, DockPosition::left, DockPosition::right})
        EXPECT_EQ(dockPosition(rawValue(position)), position);
    EXPECT_EQ(rawValue(DockPosition::bottom), "bottom");
    EXPECT_EQ(rawValue(DockPosition::left), "left");
    EXPECT_EQ(rawValue(DockPosition::right), "right");
}

TEST(Settings, KnowNoOtherTexts) {
    for (const char* text : {"", "Mirror", "mirror ", "manually", "bottom"})
        EXPECT_FALSE(sourceMode(text)) << text;
    for (const char* text : {"", "top", "Bottom", " left", "rightmost", "manual"})
        EXPECT_FALSE(dockPosition(text)) << text;
}

// Behaviour: dock-view-model-5
TEST(Settings, HaveAFactorOfOneInForceWhileMagnificationIsOff) {
    Settings settings;
    for (const double stored : {0.2, 1.0, 1.5, 2.0, 16.0}) {
        settings.magnification = stored;
        settings.magnificationEnabled = false;
        EXPECT_EQ(effectiveMagnification(settings), 1.0);
        settings.magnificationEnabled = true;
        EXPECT_EQ(effectiveMagnification(settings), stored);
    }
}

TEST(Settings, HaveNoFactorInForceThatNoDisplayHasRoomFor) {
    Settings settings;
    settings.magnificationEnabled = true;
    settings.magnification = std::numeric_limits<double>::max();
    EXPECT_EQ(effectiveMagnification(settings), 16);
    settings.magnification = 16.5;
    EXPECT_EQ(effectiveMagnification(settings), 16);
}

}
}
