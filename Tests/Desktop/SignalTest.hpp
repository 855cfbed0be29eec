/// For tests of what tiles show of their apps' signals: recognises it by its colours.
#pragma once

#include "DesktopTest.hpp"
#include "VirtualDesktop/Screen/Picture.hpp"

namespace vireline::desktop {

class SignalTest : public DesktopTest {
protected:
    static constexpr Colour badge{208, 42, 42};
    static constexpr Colour progressFill{90, 160, 255};
    static constexpr Colour mark{255, 138, 0};

    /// The dock's display from the strip's height down to its edge.
    [[nodiscard]] int pixelsOf(Colour colour) {
        PixelRect area = desktop().monitor("right").frame;
        constexpr int height = 100;
        area.y += area.height - height;
        area.height = height;
        return Picture::ofScreen(desktop().client(), area).count(colour);
    }
    [[nodiscard]] bool shows(Colour colour) {
        return eventually([&] { return pixelsOf(colour) > 20; });
    }
    [[nodiscard]] bool showsNo(Colour colour) {
        return eventually([&] { return pixelsOf(colour) == 0; });
    }
};

}
