/// The docks' control of other programs' windows, under every window manager that allows it.
#include "ManagerStory.hpp"

#include <cstdlib>

namespace vireline::desktop {
namespace {

class WindowFeatures : public ManagerStory {
protected:
    /// Whether this manager moves a window on request; then the dock can do that as well.
    [[nodiscard]] bool movesWindows() {
        const auto window = open(beta, middle.monitor);
        constexpr std::uint32_t toPosition = 10U | 1U << 8U | 1U << 9U | 2U << 12U;
        desktop().client().sendToRoot(window, "_NET_MOVERESIZE_WINDOW",
                                      {toPosition, static_cast<std::uint32_t>(side.monitor.x + 100),
                                       static_cast<std::uint32_t>(side.monitor.y + 100), 0, 0});
        return comes([&] { return side.monitor.contains(outer(window).center()); });
    }
    /// The only reason for skipping a scenario.
    [[nodiscard]] bool cannotMove() { return !hasManager() || !movesWindows(); }

    void checkInMiddleOfSide(const App& app) {
        demand(comes([&] { return isShown(app); }), "the app's window does not open");
        const auto isThere = [&] {
            // Doubled coordinates of the centre, in order to avoid fractions.
            const auto frame = outer(shownWindows(app).front());
            return std::abs(2 * frame.x + frame.width - 2 * 3392) <= 1 &&
                   std::abs(2 * frame.y + frame.height - 2 * 384) <= 1;
        };
        check(comes(isThere), "the window does not come to the middle of the clicked monitor");
    }
};

TEST_F(WindowFeatures, OpenHere) {
    run(R"(, "openOnThisDisplay": true)");
    if (cannotMove())
        GTEST_SKIP() << "it moves no windows on request";
    App elsewhere = alpha;
    elsewhere.arguments = {"--at", "1400,100"};
    desktop().home().install(elsewhere);
    clickTile(side.alpha, "click launch " + alpha.id);
    checkInMiddleOfSide(alpha);
}

TEST_F(WindowFeatures, Summon) {
    run(R"(, "summonOnClick": true)");
    if (cannotMove())
        GTEST_SKIP() << "it moves no windows on request";
    open(alpha, middle.monitor);
    waitForDot(side, side.alpha);
    clickTile(side.alpha, "click summon " + alpha.id);
    checkInMiddleOfSide(alpha);
}

TEST_F(WindowFeatures, Fill) {
    run(R"(, "fillOnDoubleClick": true)");
    if (cannotMove())
        GTEST_SKIP() << "it moves no windows on request";
    const auto window = open(alpha, middle.monitor);
    waitForDot(side, side.alpha);
    clickTile(side.alpha, "click ");
    clickTile(side.alpha, "double-click fill " + alpha.id);
    // The monitor without 84 pixels for the dock and another 8.
    const PixelRect free{2880, 0, 1024, 676};
    check(comes([&] { return outer(window) == free; }), "the window does not fill the free area");
}

}
}
