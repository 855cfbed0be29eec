/// A double click on a tile resizes the app's window to exactly the display's free area.
#include "WindowFeatureTest.hpp"

#include <string>
#include <tuple>

namespace vireline::desktop {
namespace {

/// ICCCM's flags and offsets in WM_NORMAL_HINTS.
struct Hints {
    PixelPoint minimum{1, 1};
    PixelPoint base;
    PixelPoint increment{1, 1};

    [[nodiscard]] std::vector<std::uint32_t> items() const {
        constexpr std::uint32_t minimumIncrementAndBase = 1U << 4U | 1U << 6U | 1U << 8U;
        std::vector<std::uint32_t> all(18, 0);
        all[0] = minimumIncrementAndBase;
        const auto put = [&all](std::size_t at, PixelPoint pair) {
            all[at] = static_cast<std::uint32_t>(pair.x);
            all[at + 1] = static_cast<std::uint32_t>(pair.y);
        };
        put(5, minimum);
        put(9, increment);
        put(15, base);
        return all;
    }
};

class Fill : public UnderEachManager {
protected:
    [[nodiscard]] PixelPoint placeOn(const std::string& monitor) {
        const PixelRect display = desktop().monitor(monitor).frame;
        return {display.x + 100, display.y + 120};
    }

    /// Sets the window's hints and waits until other clients see them.
    void setHints(xcb_window_t window, const Hints& hints) {
        desktop().client().setItems(window, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS,
                                    hints.items());
        desktop().client().sync();
    }

    static constexpr const char* fillOnDoubleClick = R"("fillOnDoubleClick": true)";
    FillContext context{.position = DockPosition::bottom,
                        .dockReserved = true,
                        .magnification = 1,
                        .configuredIconSize = 44};
};

TEST_P(Fill, TakesAWindowFromOneDisplayToTheNext) {
    runWith(fillOnDoubleClick);
    const auto window = open(0, placeOn("main"));

    doubleClickTile("side");
    EXPECT_TRUE(comesTo(window, freeArea("side", context)));
    doubleClickTile("above");
    EXPECT_TRUE(comesTo(window, freeArea("above", context)));
    EXPECT_TRUE(logs("double-click fill " + apps[0].id + " on #"));
    EXPECT_TRUE(logs("placement done for " + apps[0].id, 2));
    EXPECT_TRUE(eventually([&] { return desktop().visibleWindowsOf(apps[0]).size() == 1; }));
}

TEST_P(Fill, LaunchesAnAppThatDoesNotRunAndFillsOnceItIsThere) {
    runWith(fillOnDoubleClick);

    doubleClickTile("side");

    EXPECT_TRUE(comesTo(windowOf(), freeArea("side", context)));
    EXPECT_TRUE(logs("click launch " + apps[0].id));
}

TEST_P(Fill, StopsAtAnotherProgramsPanel) {
    Options options;
    auto& desktop = runWith(fillOnDoubleClick, {}, options);
    desktop.reserve({"side", Edge::top, 30});
    const auto window = open(0, placeOn("main"));

    doubleClickTile("side");

    EXPECT_TRUE(comesTo(window, freeArea("side", context)));
    EXPECT_EQ(freeArea("side", context).y, desktop.monitor("side").frame.y + 30);
}

TEST_P(Fill, MakesWayForIconsOfTheConfiguredSize) {
    request.maxIconSize = 60;
    request.magnification = 1.75;
    runWith(R"("fillOnDoubleClick": true, "iconSize": 60, "magnificationEnabled": true,
               "magnification": 1.75)");
    context.configuredIconSize = 60;
    context.magnification = 1.75;
    const auto window = open(0, placeOn("main"));

    doubleClickTile("side");

    EXPECT_TRUE(comesTo(window, freeArea("side", context)));
}

TEST_P(Fill, UnmaximisesFirst) {
    runWith(fillOnDoubleClick);
    const auto window = open(0, placeOn("main"));
    setStates(window, "MAXIMIZED_HORZ", "MAXIMIZED_VERT");

    doubleClickTile("side");

    EXPECT_TRUE(comesTo(window, freeArea("side", context)));
    EXPECT_FALSE(hasState(window, "MAXIMIZED_HORZ"));
}

TEST_P(Fill, RestoresAFullScreenWindowFirst) {
    runWith(fillOnDoubleClick);
    const auto window = open(0, placeOn("main"));
    setStates(window, "FULLSCREEN");

    doubleClickTile("above");

    EXPECT_TRUE(comesTo(window, freeArea("above", context)));
    EXPECT_FALSE(hasState(window, "FULLSCREEN"));
}

TEST_P(Fill, RespectsASizeIncrement) {
    runWith(fillOnDoubleClick);
    const auto window = open(0, placeOn("main"));
    setHints(window, {.minimum = {100, 60}, .base = {7, 5}, .increment = {13, 17}});

    doubleClickTile("side");

    const auto area = freeArea("side", context);
    ASSERT_TRUE(eventually([&] {
        const auto outer = outerFrame(window);
        return outer.x == area.x && outer.y == area.y && outer.width > area.width - 13 &&
               outer.height > area.height - 17;
    })) << outerFrame(window)
        << " of " << area;
    const auto client = desktop().client().frame(window).value_or(PixelRect{});
    EXPECT_EQ((client.width - 7) % 13, 0);
    EXPECT_EQ((client.height - 5) % 17, 0);
    EXPECT_TRUE(area.contains(outerFrame(window))) << outerFrame(window) << " of " << area;
}

TEST_P(Fill, LetsAWindowThatIsTooWideReachAwayFromTheDock) {
    for (const auto position : {DockPosition::left, DockPosition::right}) {
        request.position = position;
        runWith(R"("fillOnDoubleClick": true, "position": ")" + std::string{rawValue(position)} +
                '"');
        context.position = position;
        const auto window = open(0, placeOn("main"));
        const PixelRect area = freeArea("side", context);
        const int width = area.width + 40;
        setHints(window, {.minimum = {width, 400}, .base = {}});

        doubleClickTile("side");

        EXPECT_TRUE(eventually([&] {
            const auto outer = outerFrame(window);
            const bool meetsTheDock =
                position == DockPosition::left ? outer.x == area.x : outer.right() == area.right();
            return outer.width >= width && meetsTheDock && outer.height == area.height;
        })) << outerFrame(window)
            << " of " << area;
    }
}

TEST_P(Fill, LetsAWindowThatIsTooHighReachAwayFromTheDock) {
    runWith(fillOnDoubleClick);
    const auto window = open(0, placeOn("main"));
    const PixelRect area = freeArea("side", context);
    setHints(window, {.minimum = {400, area.height + 60}, .base = {}});

    doubleClickTile("side");

    EXPECT_TRUE(eventually([&] {
        const auto outer = outerFrame(window);
        return outer.height >= area.height + 60 && outer.bottom() == area.bottom() &&
               outer.x == area.x && outer.width == area.width;
    })) << outerFrame(window)
        << " of " << area;
}

TEST_P(Fill, LeavesAWindowsShadowBeyondTheArea) {
    runWith(fillOnDoubleClick);
    const auto window = open(0, placeOn("main"));
    desktop().client().setItems(window, "_GTK_FRAME_EXTENTS", XCB_ATOM_CARDINAL, {20, 20, 10, 40});
    desktop().client().sync();

    doubleClickTile("side");

    EXPECT_TRUE(comesTo(window, freeArea("side", context)));
}

TEST_P(Fill, FillsADisplayOfAnotherScale) {
    Options options;
    options.scales = {{"main", 1}, {"above", 1.5}, {"side", 2}};
    runWith(fillOnDoubleClick, {}, options);
    const auto window = open(0, placeOn("main"));

    doubleClickTile("above");
    EXPECT_TRUE(comesTo(window, freeArea("above", context)));
    doubleClickTile("side");
    EXPECT_TRUE(comesTo(window, freeArea("side", context)));
}

TEST_P(Fill, IsOneMoreClickWhileItIsOff) {
    runWith(R"("openOnThisDisplay": true)");
    const auto window = open(0, placeOn("side"));
    const auto before = outerFrame(window);

    doubleClickTile("side");

    EXPECT_TRUE(logs("click hide " + apps[0].id));
    EXPECT_TRUE(logs("click reopen " + apps[0].id));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(apps[0]); }));
    EXPECT_TRUE(comesTo(window, before));
    EXPECT_EQ(desktop().log().count("placement"), 0);
}

TEST_P(Fill, IsOneMoreClickWithoutAWindowManager) {
    Options options;
    options.windowManager = false;
    runWith(fillOnDoubleClick, {}, options);

    doubleClickTile("side");

    EXPECT_TRUE(logs("click launch " + apps[0].id, 2));
    EXPECT_EQ(desktop().log().count("placement"), 0);
}

INSTANTIATE_TEST_SUITE_P(Under, Fill, eachManager(), managerName);

/// Next to each kind of dock: window manager, edge, auto-hide, magnification.
using DockKind = std::tuple<VirtualDesktop::Manager, DockPosition, bool, bool>;

class FillBeside : public WindowFeatureTest, public testing::WithParamInterface<DockKind> {
protected:
    [[nodiscard]] VirtualDesktop::Manager manager() const override {
        return std::get<0>(GetParam());
    }
};

TEST_P(FillBeside, ADockOfThisKindMeetsTheFreeAreaToThePixel) {
    const auto [manager, position, hides, magnifies] = GetParam();
    const auto flag = [](bool value) { return value ? "true" : "false"; };
    request.position = position;
    request.magnification = magnifies ? 2 : 1;
    autoHide = hides;
    runWith(R"("fillOnDoubleClick": true, "magnification": 2, "position": ")" +
            std::string{rawValue(position)} + R"(", "autoHide": )" + flag(hides) +
            R"(, "magnificationEnabled": )" + flag(magnifies));
    const FillContext context{.position = position,
                              .dockReserved = !hides,
                              .magnification = magnifies ? 2.0 : 1.0,
                              .configuredIconSize = 44};
    const PixelRect main = desktop().monitor("main").frame;
    const auto window = open(0, {main.x + 100, main.y + 120});

    doubleClickTile("side");

    EXPECT_TRUE(comesTo(window, freeArea("side", context)));
}

std::string kindName(const testing::TestParamInfo<DockKind>& kind) {
    const auto [manager, position, hides, magnifies] = kind.param;
    return nameOf(manager) + "_" + std::string{rawValue(position)} +
           (hides ? "_Hiding" : "_Fixed") + (magnifies ? "_Magnified" : "_Plain");
}

INSTANTIATE_TEST_SUITE_P(Every, FillBeside,
                         testing::Combine(eachManager(),
                                          testing::Values(DockPosition::bottom, DockPosition::left,
                                                          DockPosition::right),
                                          testing::Bool(), testing::Bool()),
                         kindName);

}
}
