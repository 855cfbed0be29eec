/// Docks that collapse to their display's edge.
#include "DesktopTest.hpp"
#include "VirtualDesktop/FileDrag.hpp"

#include <algorithm>
#include <fstream>

namespace vireline::desktop {
namespace {

using namespace std::chrono_literals;

/// Longer than a dock waits before it collapses.
constexpr std::chrono::milliseconds longer{1200};

class AutoHide : public DesktopTest {
protected:
    /// Creates a desktop with two pinned apps and auto-hiding docks at an edge.
    void prepare(DockPosition position = DockPosition::bottom, Options options = {}) {
        if (options.monitors.empty())
            options.monitors = twoMonitors();
        auto& desktop = make(options);
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(std::span{apps}.first(2));
        desktop.home().writePreferences(
            R"({"onboardingCompleted": true, "autoHide": true, "position": ")" +
            std::string{rawValue(position)} + R"("})");
        desktop.pointer().moveTo(away());
        request.position = position;
    }
    /// As above, and runs the program until its dock on "right" has collapsed.
    void run(DockPosition position = DockPosition::bottom, Options options = {}) {
        prepare(position, std::move(options));
        desktop().runVireline();
        ASSERT_TRUE(hides());
        // A window manager unmaps a dock for a moment while it reparents it.
        ASSERT_TRUE(eventually([&] { return isManaged(); }));
    }

    [[nodiscard]] PanelSpec spec() { return plannedDock("right", request).spec; }
    [[nodiscard]] PixelRect pixels(const Rect& global) {
        return desktop().displays().pixels(desktop().monitor("right"), global);
    }
    [[nodiscard]] PixelRect sliver() { return pixels(spec().collapsedFrame()); }
    /// The window's frame while the dock is expanded.
    [[nodiscard]] PixelRect hoverFrame() {
        const auto dock = plannedDock("right", request);
        return pixels(dock.overhang.around(dock.spec.hoverFrame()));
    }
    [[nodiscard]] PixelRect shown() {
        return desktop().docks().on(desktop().displayIDOf("right")).frame;
    }
    [[nodiscard]] bool isHidden() {
        if (!desktop().isWayland())
            return shown() == sliver();
        // Only the handle can be seen, which is shorter than the window.
        return shown().width > 0 && sliver().contains(shown());
    }
    [[nodiscard]] bool isManaged() {
        if (desktop().isWayland())
            return true;
        const auto dock = desktop().docks().on(desktop().displayIDOf("right")).window;
        const auto managed = desktop().client().managedWindows();
        return std::ranges::find(managed, dock) != managed.end() &&
               desktop().client().isViewable(dock);
    }

    [[nodiscard]] testing::AssertionResult
    hides(std::chrono::milliseconds limit = conditionTimeout) {
        if (eventually([&] { return isHidden(); }, limit))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << shown() << " and not " << sliver();
    }
    [[nodiscard]] testing::AssertionResult comesOut() {
        if (!desktop().isWayland() && !eventually([&] { return shown() == hoverFrame(); }))
            return testing::AssertionFailure() << shown() << " and not " << hoverFrame();
        return turns(tile(0), apps[0].colour);
    }
    /// Whether it is still expanded after a while.
    [[nodiscard]] bool staysOut() {
        return !eventually([&] { return isHidden(); }, longer);
    }

    [[nodiscard]] PixelPoint tile(int index) { return layout("right", request).icon(index); }
    [[nodiscard]] PixelPoint away() { return desktop().monitor("right").frame.center(); }
    void touch() { desktop().pointer().moveTo(sliver().center()); }
    void leave() { desktop().pointer().moveTo(away()); }

    const std::vector<App> apps = someApps(4);
    Request request = tiles(2);
};

class AutoHideAtEdge : public AutoHide, public testing::WithParamInterface<DockPosition> {
protected:
    /// The rectangle's edge on the docks' side.
    static int edgeOf(const PixelRect& rect) {
        switch (GetParam()) {
        case DockPosition::left:
            return rect.x;
        case DockPosition::right:
            return rect.right();
        case DockPosition::bottom:
            break;
        }
        return rect.bottom();
    }
};

TEST_P(AutoHideAtEdge, BeginsAsASliverAlongTheDisplaysEdge) {
    run(GetParam());
    constexpr int thickness = 4;
    EXPECT_EQ(std::min(sliver().width, sliver().height), thickness);
    const auto& screen = desktop().monitor("right").frame;
    EXPECT_TRUE(screen.contains(shown()));
    EXPECT_EQ(edgeOf(shown()), edgeOf(screen));
}

TEST_P(AutoHideAtEdge, ComesOutOnTouchWithItsStripWhereItIsPlanned) {
    run(GetParam());
    touch();
    EXPECT_TRUE(comesOut());
    EXPECT_TRUE(turns(tile(0), apps[0].colour));
    EXPECT_TRUE(turns(tile(1), apps[1].colour));
}

TEST_P(AutoHideAtEdge, HidesAgainOnceThePointerHasLeft) {
    run(GetParam());
    touch();
    ASSERT_TRUE(comesOut());
    desktop().pointer().moveTo(tile(0));
    const auto left = std::chrono::steady_clock::now();
    leave();
    EXPECT_TRUE(hides());
    EXPECT_GE(std::chrono::steady_clock::now() - left, 600ms);
    EXPECT_TRUE(turnsFrom(tile(0), apps[0].colour));
}

TEST_P(AutoHideAtEdge, TakesClicksOnItsTilesWhileItIsOut) {
    run(GetParam());
    touch();
    ASSERT_TRUE(comesOut());
    desktop().pointer().click(tile(1));
    EXPECT_TRUE(logs("click launch " + apps[1].id));
}

INSTANTIATE_TEST_SUITE_P(Edges, AutoHideAtEdge,
                         testing::Values(DockPosition::bottom, DockPosition::left,
                                         DockPosition::right),
                         [](const auto& edge) { return std::string{rawValue(edge.param)}; });

TEST_F(AutoHide, IsOffWhenThePointerComesBackInTime) {
    run();
    touch();
    ASSERT_TRUE(comesOut());
    leave();
    desktop().pointer().moveTo(tile(0));
    EXPECT_TRUE(staysOut());
    leave();
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, LeavesThePointerOnTheEdgeWithoutHidingUnderIt) {
    run();
    touch();
    ASSERT_TRUE(comesOut());
    EXPECT_TRUE(staysOut());
}

TEST_F(AutoHide, TakesNoClicksButOnTheSliver) {
    run();
    const auto record = desktop().home().scratch() / "behind";
    const auto& frame = desktop().monitor("right").frame;
    const App behind{"org.example.Behind", "Behind", {}, {}};
    desktop().launch(behind,
                     {"--at", std::to_string(frame.x) + "," + std::to_string(frame.y), "--size",
                      std::to_string(frame.width) + "x" + std::to_string(frame.height),
                      "--skip-taskbar", "--record", record.string()});
    ASSERT_TRUE(eventually([&] { return !desktop().visibleWindowsOf(behind).empty(); }));
    const auto expectThrough = [&](PixelPoint place) {
        desktop().pointer().click(place);
        const auto press =
            "press " + std::to_string(place.x) + ' ' + std::to_string(place.y) + '\n';
        EXPECT_TRUE(eventually([&] { return readFile(record).contains(press); })) << place;
    };
    expectThrough(tile(0));
    expectThrough({sliver().x - 1, sliver().y});
    expectThrough({sliver().right(), sliver().y});
    expectThrough({sliver().center().x, sliver().y - 1});
    EXPECT_TRUE(isHidden());

    touch();
    ASSERT_TRUE(comesOut());
    desktop().pointer().click(sliver().center());
    desktop().pointer().click(tile(1));
    ASSERT_TRUE(logs("click launch " + apps[1].id));
    const auto onSliver = "press " + std::to_string(sliver().center().x) + ' ' +
                          std::to_string(sliver().center().y) + '\n';
    EXPECT_FALSE(readFile(record).contains(onSliver));
    EXPECT_EQ(desktop().log().count("click"), 1);
}

TEST_F(AutoHide, WaitsForAnOpenMenu) {
    run();
    touch();
    ASSERT_TRUE(comesOut());
    ASSERT_NE(openMenu(tile(0)), PixelRect{});
    leave();
    EXPECT_TRUE(staysOut());
    desktop().keyboard().type(Keyboard::escape);
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, WaitsForTheEndOfADrag) {
    run();
    touch();
    ASSERT_TRUE(comesOut());
    const auto place = tile(0);
    desktop().pointer().moveTo(place);
    desktop().pointer().press(Pointer::Button::primary);
    desktop().pointer().moveTo({place.x + 10, place.y});
    leave();
    EXPECT_TRUE(staysOut());
    desktop().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, ComesOutForFilesThatAreDraggedToTheSliver) {
    run();
    const auto file = desktop().home().folder() / "letter";
    std::ofstream{file} << "Dear Ada";
    FileDrag drag{desktop(), {urlList({file})}};
    static_cast<void>(drag.moveTo(sliver().center()));
    ASSERT_TRUE(comesOut());
    EXPECT_TRUE(staysOut());
    constexpr int trash = 3;
    EXPECT_EQ(drag.moveTo(tile(trash)), "accepted XdndActionCopy");
    EXPECT_EQ(drag.drop(), "done XdndActionCopy");
    EXPECT_TRUE(logs("trashed letter"));
    EXPECT_TRUE(staysOut()) << "the pointer is still there";
    leave();
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, HidesWhenFilesAreDraggedAwayAgain) {
    run();
    FileDrag drag{desktop(), {urlList({desktop().home().folder() / "letter"})}};
    static_cast<void>(drag.moveTo(sliver().center()));
    ASSERT_TRUE(comesOut());
    EXPECT_TRUE(drag.moveAway(away()));
    EXPECT_TRUE(hides());
    EXPECT_EQ(drag.drop(), "not dropped");
}

TEST_F(AutoHide, HidesWhenTheSourceOfADragDies) {
    run();
    FileDrag drag{desktop(), {urlList({desktop().home().folder() / "letter"})}};
    static_cast<void>(drag.moveTo(sliver().center()));
    ASSERT_TRUE(comesOut());
    static_cast<void>(drag.moveTo(tile(0)));
    drag.program().signal(SIGKILL);
    leave();
    EXPECT_TRUE(hides());
    desktop().pointer().release(Pointer::Button::primary);
}

TEST_F(AutoHide, StaysInForWhatCannotBeDropped) {
    run();
    FileDrag drag{desktop(), {"https://example.org/a\r\n"}};
    EXPECT_EQ(drag.moveTo(sliver().center()), "refused");
    EXPECT_TRUE(isHidden()) << shown() << " and not " << sliver();
    EXPECT_EQ(drag.drop(), "not dropped");
}

TEST_F(AutoHide, StaysInWhileAWindowIsMovedPastIt) {
    run();
    const App editor{"org.example.Editor", "Editor", {}, {}};
    desktop().launch(editor, {"--at", "2200,200", "--skip-taskbar"});
    ASSERT_TRUE(eventually([&] { return !desktop().visibleWindowsOf(editor).empty(); }));
    // A press grabs the pointer for the window in which it is made.
    desktop().pointer().moveTo({2300, 300});
    desktop().pointer().press(Pointer::Button::primary);
    touch();
    EXPECT_FALSE(eventually([&] { return !isHidden(); }, longer));
    desktop().pointer().release(Pointer::Button::primary);
    EXPECT_TRUE(comesOut());
}

TEST_F(AutoHide, FindsAPointerThatWasThereBeforeIt) {
    prepare();
    touch();
    desktop().runVireline();
    EXPECT_TRUE(comesOut());
    leave();
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, FindsAPointerThatItMovesUnder) {
    run();
    // Next to the sliver, where a longer dock's sliver would be.
    desktop().pointer().moveTo({sliver().x - 20, sliver().center().y});
    desktop().home().pin(apps);
    request.counts.pinned = static_cast<int>(apps.size());
    EXPECT_TRUE(comesOut());
    leave();
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, HidesWhenItMovesAwayFromUnderThePointer) {
    run();
    desktop().home().pin(apps);
    request.counts.pinned = static_cast<int>(apps.size());
    ASSERT_TRUE(hides());
    touch();
    ASSERT_TRUE(comesOut());
    const auto end = hoverFrame();
    desktop().pointer().moveTo({end.x + 10, end.bottom() - 20});
    desktop().home().pin(std::span{apps}.first(1));
    request.counts.pinned = 1;
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, ComesOutAtAnInnerEdgeAndLetsThePointerPass) {
    run(DockPosition::left);
    const auto edge = sliver();
    const auto& left = desktop().monitor("left").frame;
    ASSERT_EQ(edge.x, left.right());
    // Crosses the edge in small steps.
    for (int x = edge.x - 6; x <= edge.x + 300; x += 3) {
        desktop().pointer().moveTo({x, edge.center().y});
        EXPECT_EQ(desktop().pointer().position().x, x);
    }
    EXPECT_TRUE(hides());
    for (int x = edge.x + 10; x >= edge.x - 300; x -= 2) {
        desktop().pointer().moveTo({x, edge.center().y});
        EXPECT_EQ(desktop().pointer().position().x, x);
    }
    EXPECT_TRUE(hides());
    touch();
    EXPECT_TRUE(comesOut());
    desktop().pointer().moveTo({edge.x - 1, edge.center().y});
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, WorksAtTwiceTheScale) {
    run(DockPosition::bottom, {.scales = {{"right", 2}}});
    touch();
    EXPECT_TRUE(comesOut());
    EXPECT_TRUE(turns(tile(0), apps[0].colour));
    leave();
    EXPECT_TRUE(hides());
}

TEST_F(AutoHide, WorksUnderACompositor) {
    run(DockPosition::bottom, {.compositor = true});
    touch();
    EXPECT_TRUE(comesOut());
    EXPECT_TRUE(turns(tile(0), apps[0].colour));
    leave();
    EXPECT_TRUE(hides());
}

}
}
