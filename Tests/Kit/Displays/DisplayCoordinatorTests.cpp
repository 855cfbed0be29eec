#include "Displays/DisplayCoordinator.hpp"
#include "Support/DockFixture.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/Recorder.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace vireline {
namespace {

using testing::Test;

class DisplayCoordinatorTest : public Test {
protected:
    DisplayCoordinatorTest() {
        coordinator.dockConfig = [this] { return config; };
        dock.setTiles(3, 0);
        attach(2);
    }

    /// Display 1 is the primary with the desktop's own dock; the others are to its left.
    void attach(int displays) {
        auto& list = dock.platform.screens.list;
        list = {test::screenWithDock(1, {0, 0, 1920, 1080})};
        for (int i = 1; i < displays; ++i) {
            list.push_back(
                test::screenAt(static_cast<std::uint32_t>(i + 1), {-1280.0 * i, -200, 1280, 1024}));
        }
    }

    [[nodiscard]] test::FakePanelWindows& windows() { return dock.platform.panelWindows; }
    /// The icon size of the dock on display 2 after all animations have finished.
    [[nodiscard]] double shownIconSize() {
        windows().panel(2).nextFrame();
        advance(1);
        windows().panel(2).nextFrame();
        const auto& nodes = windows().panel(2).scene->nodes;
        const auto isIcon = [](const SceneNode& node) {
            return node.id.part == NodeID::Part::icon;
        };
        return std::ranges::find_if(nodes, isIcon)->frame.width;
    }

    void advance(double seconds) { dock.platform.runLoop.advance(seconds); }

    test::DockFixture dock;
    test::LoggedLines log;
    DisplayCoordinator::DockConfig config;
    DisplayCoordinator coordinator{dock.context(), dock.platform.screens,
                                   dock.platform.panelWindows};
};

TEST_F(DisplayCoordinatorTest, PutsADockOnEveryDisplayButTheOneWithTheDesktopsOwn) {
    attach(3);
    coordinator.start();

    EXPECT_EQ(windows().displays(), (std::vector<std::uint32_t>{2, 3}));
    EXPECT_EQ(log.count("reconcile screens=[1, 2, 3] desired=[2, 3] create=2 destroy=0 reframe=0"),
              1);
    EXPECT_TRUE(windows().panel(2).isVisible);
}

TEST_F(DisplayCoordinatorTest, LogsWhereAPanelWasCreated) {
    coordinator.start();

    EXPECT_EQ(log.messages().back(), "created panel #2 at (-772.5, -196, 265, 84) autoHide=false");
}

// Behaviour: display-coordinator-1
TEST_F(DisplayCoordinatorTest, ReconcilesOnceHalfASecondAfterTheLastOfABurst) {
    coordinator.start();
    log.clear();

    for (int i = 0; i < 3; ++i) {
        dock.platform.screens.announceChange();
        advance(0.1);
    }
    advance(0.39);
    EXPECT_EQ(log.messages(), (std::vector<std::string>{"screen-params #1", "screen-params #2",
                                                        "screen-params #3"}));
    advance(0.02);

    EXPECT_EQ(log.count("reconcile screens=[1, 2] desired=[2] create=0 destroy=0 reframe=0"), 1);
}

// Behaviour: display-coordinator-2
TEST_F(DisplayCoordinatorTest, AnotherEdgeRebuildsEveryPanel) {
    attach(3);
    coordinator.start();
    log.clear();

    config.position = DockPosition::left;
    coordinator.reconcile();

    EXPECT_EQ(log.messages(),
              (std::vector<std::string>{
                  "rebuilt panel #2 for position change", "rebuilt panel #3 for position change",
                  "reconcile screens=[1, 2, 3] desired=[2, 3] create=2 destroy=0 reframe=0",
                  "created panel #2 at (-1276, 179.5, 58, 265) autoHide=false",
                  "created panel #3 at (-2556, 179.5, 58, 265) autoHide=false"}));
    EXPECT_EQ(windows().made.size(), 4U);
    EXPECT_TRUE(windows().made[0]->isOrderedOut);
    EXPECT_TRUE(windows().made[0]->isAlive());
    advance(0);
    EXPECT_FALSE(windows().made[0]->isAlive());
    EXPECT_EQ(windows().panel(2).frame.x, -1276);
}

// Behaviour: display-coordinator-3
TEST_F(DisplayCoordinatorTest, UnpluggingTheOnlyOtherDisplayDestroysItsPanel) {
    coordinator.start();
    log.clear();

    attach(1);
    coordinator.reconcile();

    EXPECT_EQ(log.messages(), (std::vector<std::string>{
                                  "reconcile screens=[1] desired=[] create=0 destroy=1 reframe=0",
                                  "destroyed panel #2"}));
    EXPECT_TRUE(windows().displays().empty());
}

// Behaviour: display-coordinator-4
TEST_F(DisplayCoordinatorTest, ATileMoreMovesEveryPanel) {
    attach(3);
    coordinator.start();
    log.clear();

    dock.setTiles(4, 0);
    coordinator.reconcile();

    EXPECT_EQ(log.count("reconcile screens=[1, 2, 3] desired=[2, 3] create=0 destroy=0 reframe=2"),
              1);
    EXPECT_EQ(log.count("reframed panel #2 -> (-797.5, -196, 315, 84)"), 1);
    EXPECT_EQ(windows().panel(2).frame.width, 315);
}

// Behaviour: display-coordinator-5
TEST_F(DisplayCoordinatorTest, AChangeOfAvailableWidthAloneReframesNothingYetReachesThePanels) {
    // With icons of the smallest size, a wider display changes the available width but not the
    // frame.
    dock.setTiles(100, 0);
    coordinator.start();
    const Rect before = windows().panel(2).frame;
    log.clear();

    auto& screen = dock.platform.screens.list[1];
    screen.frame = {screen.frame.x - 50, screen.frame.y, screen.frame.width + 100,
                    screen.frame.height};
    screen.visibleFrame = screen.frame;
    coordinator.reconcile();

    EXPECT_EQ(log.messages(),
              (std::vector<std::string>{
                  "reconcile screens=[1, 2] desired=[2] create=0 destroy=0 reframe=0"}));
    EXPECT_EQ(windows().panel(2).frame, before);
    // With fewer tiles, the wider display allows larger icons: 27 points instead of 25.
    dock.setTiles(38, 0);
    EXPECT_EQ(shownIconSize(), 27);
}

TEST_F(DisplayCoordinatorTest, TurningAutoHideOffExpandsThePanels) {
    config.autoHide = true;
    coordinator.start();
    EXPECT_EQ(log.messages().back(), "created panel #2 at (-772.5, -196, 265, 84) autoHide=true");
    EXPECT_EQ(windows().panel(2).frame, (Rect{-772.5, -200, 265, 4}));

    config.autoHide = false;
    coordinator.reconcile();

    EXPECT_EQ(windows().panel(2).frame, (Rect{-772.5, -196, 265, 84}));
}

TEST_F(DisplayCoordinatorTest, ThePanelFollowsTheDesktopsDockToAnotherDisplay) {
    coordinator.start();

    dock.platform.screens.list = {test::screenAt(1, {0, 0, 1920, 1080}),
                                  test::screenWithDock(2, {-1280, -200, 1280, 1024})};
    coordinator.reconcile();

    EXPECT_EQ(windows().displays(), std::vector<std::uint32_t>{1});
}

TEST_F(DisplayCoordinatorTest, AnnouncesTheBandsOfTheDisplaysWithADockAfterEveryReconcile) {
    attach(3);
    test::Recorder<std::vector<Rect>> zones{coordinator.onGuardZonesChanged};

    coordinator.start();
    EXPECT_EQ(zones.last(), (std::vector<Rect>{{-1280, 1277, 1280, 3}, {-2560, 1277, 1280, 3}}));
    attach(1);
    coordinator.reconcile();

    EXPECT_EQ(zones.count(), 2);
    EXPECT_EQ(zones.last(), std::vector<Rect>{});
}

TEST_F(DisplayCoordinatorTest, NothingHappensAfterItIsGone) {
    auto own = std::make_unique<DisplayCoordinator>(dock.context(), dock.platform.screens,
                                                    dock.platform.panelWindows);
    own->start();
    dock.platform.screens.announceChange();
    own.reset();
    log.clear();

    dock.platform.screens.announceChange();
    advance(1);

    EXPECT_TRUE(log.messages().empty());
    EXPECT_TRUE(windows().displays().empty());
}

}
}
