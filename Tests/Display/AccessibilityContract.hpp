/// What the tests of `Accessibility`'s contract share. They run on the fake and on the real port
/// alike. The real one meets programs of their own under a window manager; whatever it asks of that
/// one comes true a little later.
#pragma once

#include "Display/AccessibilityDesktops.hpp"

#include <type_traits>

namespace vireline::contract {

template <class Desktop>
class AccessibilityContract : public Desktop {
protected:
    ElementHandle app(const Program& program) {
        return this->port.application(program.process, program.bundleID);
    }

    std::vector<ElementHandle> windows(const Program& program) {
        return this->port.windows(*app(program)).value_or(std::vector<ElementHandle>{});
    }

    /// A program whose windows have different corners, in their listed order.
    Program runPlaced(std::size_t count) {
        const Program program = this->run(count);
        const auto elements = windows(program);
        EXPECT_EQ(elements.size(), count);
        for (std::size_t i = 0; i < elements.size(); ++i)
            EXPECT_TRUE(this->port.setPosition(*elements[i], corner(i)));
        for (std::size_t i = 0; i < elements.size(); ++i)
            EXPECT_TRUE(this->eventually([&] { return isAt(*elements[i], corner(i)); }));
        return program;
    }

    static Point corner(std::size_t window) {
        return {100 + 250 * static_cast<double>(window), 150};
    }

    ElementHandle window(const Program& program, std::size_t index = 0) {
        return windows(program).at(index);
    }

    bool isAt(AccessibilityElement& element, Point corner) {
        return this->port.position(element) == Result<Point>{corner};
    }

    bool isMain(const Program& program, std::size_t window) {
        const auto main = this->port.mainWindow(*app(program));
        return main && *main && isAt(**main, corner(window));
    }

    testing::AssertionResult comesTo(const Program& program, const Rect& frame) {
        if (this->eventually([&] { return this->outerFrame(program, 0) == frame; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "the window is at " << this->outerFrame(program, 0) << " and not at " << frame;
    }

    /// Whether every call about the window fails.
    testing::AssertionResult failsAtAll(AccessibilityElement& window) {
        auto outcome = fails(this->port.position(window));
        outcome = outcome ? fails(this->port.size(window)) : outcome;
        outcome = outcome ? fails(this->port.setPosition(window, {1, 2})) : outcome;
        return outcome ? fails(this->port.setSize(window, {300, 200})) : outcome;
    }
};

struct Names {
    template <class Desktop>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<Desktop, FakeDesktop> ? "Fake" : "Ewmh";
    }
};

using Desktops = testing::Types<FakeDesktop, EwmhDesktop>;

}
