/// Dragging tiles to other positions in their dock.
#include "DesktopTest.hpp"

namespace vireline::desktop {
namespace {

class TileDrag : public DesktopTest {
protected:
    /// Runs the program with three pinned apps and docks at the given edge.
    void run(Options options = {}, DockPosition position = DockPosition::bottom) {
        if (options.monitors.empty())
            options.monitors = twoMonitors();
        auto& desktop = make(options);
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(apps);
        desktop.home().writePreferences(R"({"onboardingCompleted": true, "position": ")" +
                                        std::string{rawValue(position)} + R"("})");
        desktop.runVireline();
        request.position = position;
        ASSERT_TRUE(docksSettle(request));
    }

    [[nodiscard]] PixelPoint tile(int index) { return layout(display, request).icon(index); }

    /// Drags a tile step by step to another one's position, without releasing it.
    void drag(int from, int to) {
        desktop().pointer().moveTo(tile(from));
        desktop().pointer().press(Pointer::Button::primary);
        constexpr int steps = 8;
        const PixelPoint start = tile(from);
        const PixelPoint end = tile(to);
        for (int i = 1; i <= steps; ++i) {
            desktop().pointer().moveTo(
                {start.x + (end.x - start.x) * i / steps, start.y + (end.y - start.y) * i / steps});
        }
    }
    void letGo() { desktop().pointer().release(Pointer::Button::primary); }

    /// Waits until the dock on a display shows exactly these apps, in this order.
    void expectTiles(const std::vector<App>& expected, const std::string& monitor = "right") {
        const auto dock = layout(monitor, request);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_TRUE(turns(dock.icon(static_cast<int>(i)), expected[i].colour))
                << expected[i].name << " on " << monitor;
        }
    }

    const std::vector<App> apps = someApps(3);
    const App& alpha = apps[0];
    const App& beta = apps[1];
    const App& gamma = apps[2];
    Request request = tiles(3);
    std::string display = "right";
};

class TileDragAtEdge : public TileDrag, public testing::WithParamInterface<DockPosition> {};

TEST_P(TileDragAtEdge, MovesATileAlongTheDock) {
    run({}, GetParam());
    drag(0, 2);
    letGo();
    EXPECT_TRUE(logs("manual move " + alpha.id + " to 2"));
    expectTiles({beta, gamma, alpha});
    EXPECT_EQ(desktop().log().count("click"), 0);
}

TEST_P(TileDragAtEdge, MovesATileBackToTheStart) {
    run({}, GetParam());
    drag(2, 0);
    letGo();
    EXPECT_TRUE(logs("manual move " + gamma.id + " to 0"));
    expectTiles({gamma, alpha, beta});
}

INSTANTIATE_TEST_SUITE_P(Edges, TileDragAtEdge,
                         testing::Values(DockPosition::bottom, DockPosition::left,
                                         DockPosition::right),
                         [](const auto& edge) { return std::string{rawValue(edge.param)}; });

TEST_F(TileDrag, CarriesTheTileAndMakesRoomOnTheWay) {
    run();
    drag(0, 2);
    EXPECT_TRUE(turns(tile(2), alpha.colour));
    EXPECT_TRUE(turns(tile(0), beta.colour));
    EXPECT_TRUE(turns(tile(1), gamma.colour));
    EXPECT_EQ(desktop().log().count("manual"), 0);
    letGo();
    EXPECT_TRUE(logs("manual move " + alpha.id + " to 2"));
}

TEST_F(TileDrag, ShowsOnEveryDock) {
    display = "side";
    run({.monitors = threeMonitors()});
    drag(0, 1);
    letGo();
    expectTiles({beta, alpha, gamma}, "side");
    expectTiles({beta, alpha, gamma}, "above");
}

TEST_F(TileDrag, MakesTheMirroredListTheUsersOwn) {
    run();
    drag(1, 2);
    letGo();
    ASSERT_TRUE(logs("manual move " + beta.id + " to 2"));
    EXPECT_EQ(desktop().log().count("manual list seeded from mirror, 3 apps"), 1);
    EXPECT_EQ(desktop().log().count("list edited while mirroring: switched to manual, seeded"), 1);
    const auto saved = readFile(desktop().home().preferences());
    EXPECT_LT(saved.find(gamma.id), saved.find(beta.id)) << saved;
    // From now on the other dock's list is independent.
    desktop().home().pin(std::vector{alpha});
    ASSERT_TRUE(logs("mirror: 1 pinned apps"));
    expectTiles({alpha, gamma, beta});
}

TEST_F(TileDrag, BeginsAfterFourPointsAndIsAClickBefore) {
    run();
    const auto place = tile(0);
    desktop().pointer().moveTo(place);
    desktop().pointer().press(Pointer::Button::primary);
    desktop().pointer().moveTo({place.x + 3, place.y});
    letGo();
    EXPECT_TRUE(logs("click launch " + alpha.id));
    EXPECT_EQ(desktop().log().count("manual"), 0);
}

TEST_F(TileDrag, LeavesATileThatIsReleasedNearbyWhereItWas) {
    run();
    const auto place = tile(1);
    desktop().pointer().moveTo(place);
    desktop().pointer().press(Pointer::Button::primary);
    desktop().pointer().moveTo({place.x + 20, place.y});
    // Above its neighbour's edge, drawn on top of it.
    ASSERT_TRUE(turns({place.x + 40, place.y}, beta.colour));
    letGo();
    expectTiles({alpha, beta, gamma});
    desktop().pointer().click(tile(2));
    ASSERT_TRUE(logs("click launch " + gamma.id));
    EXPECT_EQ(desktop().log().count("click"), 1);
    EXPECT_EQ(desktop().log().count("manual"), 0);
    expectTiles({alpha, beta, gamma});
}

TEST_F(TileDrag, EndsWithEscapeAndLeavesTheListAlone) {
    run();
    drag(0, 2);
    ASSERT_TRUE(turns(tile(0), beta.colour));
    ASSERT_TRUE(eventually([&] { return desktop().isKeyboardTaken(); }));
    desktop().keyboard().type(Keyboard::escape);
    expectTiles({alpha, beta, gamma});
    letGo();
    desktop().pointer().click(tile(1));
    ASSERT_TRUE(logs("click launch " + beta.id));
    EXPECT_EQ(desktop().log().count("manual"), 0);
    EXPECT_EQ(desktop().log().count("click"), 1);
}

TEST_F(TileDrag, GivesTheKeyboardBack) {
    run();
    EXPECT_FALSE(desktop().isKeyboardTaken());
    drag(0, 1);
    // Must come first, because checking the grab takes it for a moment.
    ASSERT_TRUE(turns(tile(0), beta.colour));
    EXPECT_TRUE(eventually([&] { return desktop().isKeyboardTaken(); }));
    letGo();
    EXPECT_TRUE(eventually([&] { return !desktop().isKeyboardTaken(); }));
}

TEST_F(TileDrag, GoesOnFarFromTheDock) {
    run();
    drag(0, 2);
    const auto end = tile(2);
    desktop().pointer().moveTo({end.x, end.y - 500});
    letGo();
    EXPECT_TRUE(logs("manual move " + alpha.id + " to 2"));
}

TEST_F(TileDrag, NeverMovesRunningAndUtilityTiles) {
    run();
    const App delta = someApps(4)[3];
    desktop().home().install(delta);
    desktop().launch(delta);
    request.counts.unpinnedRunning = 1;
    ASSERT_TRUE(docksSettle(request));
    const auto frame = plannedDock("right", request).frame;
    constexpr int middleOfLabels = 13;
    const PixelPoint label{frame.center().x, frame.y + middleOfLabels};
    const auto noLabel = desktop().pixel(label);
    for (const int index : {3, 4, 5}) {
        drag(index, 0);
        ASSERT_TRUE(turnsFrom(label, noLabel));
        letGo();
        desktop().pointer().moveTo(desktop().monitor("right").frame.center());
        ASSERT_TRUE(turns(label, noLabel));
    }
    // Releasing it over another tile does not click that either.
    desktop().pointer().click(tile(1));
    ASSERT_TRUE(logs("click launch " + beta.id));
    EXPECT_EQ(desktop().log().count("manual"), 0);
    EXPECT_EQ(desktop().log().count("click"), 1);
    EXPECT_EQ(desktop().log().count("open folder"), 0);
    expectTiles({alpha, beta, gamma, delta});
}

TEST_F(TileDrag, IsOffWhenItsTileLeavesTheList) {
    run();
    drag(0, 2);
    ASSERT_TRUE(turns(tile(0), beta.colour));
    desktop().home().pin(std::vector{beta, gamma});
    request.counts.pinned = 2;
    ASSERT_TRUE(docksSettle(request));
    letGo();
    expectTiles({beta, gamma});
    EXPECT_TRUE(eventually([&] { return !desktop().isKeyboardTaken(); }));
    EXPECT_EQ(desktop().log().count("manual"), 0);
}

TEST_F(TileDrag, IsUndoneFromTheMenuBesideTheTiles) {
    run();
    drag(0, 2);
    letGo();
    // The tiles were in this order already while the button was held.
    ASSERT_TRUE(logs("manual move " + alpha.id + " to 2"));
    ASSERT_TRUE(docksSettle(request));
    expectTiles({beta, gamma, alpha});

    const auto menu = openMenu(besideTiles(layout(display, request), 3));
    ASSERT_NE(menu, PixelRect{});
    choose(menu, 0, 3);

    EXPECT_TRUE(logs("manual undo " + alpha.id));
    expectTiles({alpha, beta, gamma});
    EXPECT_TRUE(eventually([&] {
        return readFile(desktop().home().preferences()).contains(R"("sourceMode": "mirror")");
    })) << readFile(desktop().home().preferences());
}

}
}
