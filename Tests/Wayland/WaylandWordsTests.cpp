#include "App/WaylandWords.hpp"
#include "Desktop/LinuxWords.hpp"
#include "Platform/Desktop/DesktopWords.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vireline::wayland {
namespace {

TEST(WaylandWords, DoNotBlameAnXServer) {
    DesktopWords words = xdg::linuxWords();

    WaylandWords::adapt(words);

    for (const std::string& text :
         {words.anchorWaits, words.threeFeatures, words.cannotMoveWindows}) {
        EXPECT_EQ(text.find("X server"), std::string::npos) << text;
        EXPECT_EQ(text.find("window manager"), std::string::npos) << text;
    }
    EXPECT_FALSE(words.offersAnchor);
    EXPECT_NE(words.anchorWaits, xdg::linuxWords().anchorWaits);
}

}
}
