/// What is left of docks, menus and probes when their display vanishes.
#include "Connection/QtNative.hpp"
#include "Panels/LayerPanelWindow.hpp"
#include "WaylandPanels/ShellTest.hpp"
#include "WaylandPanels/SilentWindow.hpp"

#include <QGuiApplication>
#include <memory>
#include <optional>
#include <vector>

namespace vireline::wayland {
namespace {

/// A dock at the bottom of the only display. Each display has a surface of its own that measures
/// the free space, and three probes at its edges.
class VanishingDisplay : public ShellTest {
protected:
    static constexpr int measuring = 4;

    void SetUp() override {
        ShellTest::SetUp();
        ASSERT_TRUE(eventually([&] { return layers() == measuring; }));
    }
    void TearDown() override {
        dock_.reset();
        if (screens().screens().empty()) {
            shell().plugIn();
            EXPECT_TRUE(eventually([&] { return screens().screens().size() == 1; }));
        }
        ShellTest::TearDown();
    }

    void showDock() {
        dock_ = std::make_unique<LayerPanelWindow>(context(),
                                                   screens().screens().front().number.value_or(0),
                                                   Rect{300, 0, 200, 60}, listener_);
        dock_->orderFrontRegardless();
        ASSERT_TRUE(eventually([&] { return layers() == measuring + 1; }));
        ASSERT_TRUE(eventually([&] { return shell().withContent() >= measuring; }));
    }
    void openMenu() {
        dock_->popUpMenu({{MenuCommand{.title = "Quit"}, MenuSubmenu{"More", {{.title = "A"}}}}},
                         {{100, 0}, MenuPlace::Side::above}, [this] { ++closedMenus_; });
    }
    /// Closes the layer surfaces too, as KWin and newer versions of sway do.
    void unplug() {
        shell().unplug();
        shell().closeLayers();
        ASSERT_TRUE(eventually([&] { return screens().screens().empty(); }));
    }
    [[nodiscard]] static int layers() { return shell().count("zwlr_layer_surface_v1"); }
    [[nodiscard]] static int menus() { return shell().count("xdg_popup"); }

    SilentWindow listener_;
    std::unique_ptr<LayerPanelWindow> dock_;
    int closedMenus_ = 0;
};

class HiddenDock : public VanishingDisplay {};

TEST_F(HiddenDock, HasNoSurfaceUntilItIsShownAgain) {
    showDock();

    dock_->orderOut();
    EXPECT_TRUE(eventually([] { return layers() == measuring; }));

    dock_->orderFrontRegardless();
    EXPECT_TRUE(eventually([] { return layers() == measuring + 1; }));
}

TEST_F(VanishingDisplay, TakesItsProbesAlong) {
    unplug();
    EXPECT_TRUE(eventually([] { return layers() == 0; }));

    shell().plugIn();
    EXPECT_TRUE(eventually([] { return layers() == measuring; }));
    EXPECT_EQ(screens().screens().size(), 1U);
}

TEST_F(VanishingDisplay, TakesItsDockAlongAndBringsItBack) {
    showDock();
    unplug();
    EXPECT_TRUE(eventually([] { return layers() == 0; }));

    shell().plugIn();
    EXPECT_TRUE(eventually([] { return layers() == measuring + 1; }));
    EXPECT_TRUE(eventually([] { return shell().withContent() >= measuring; }));
}

TEST_F(VanishingDisplay, LetsItsDockBeDestroyed) {
    showDock();
    unplug();

    dock_.reset();
    settle();
    EXPECT_EQ(layers(), 0);
}

TEST_F(VanishingDisplay, DoesNotStopTheFramesOfItsDock) {
    showDock();
    unplug();
    EXPECT_TRUE(eventually([] { return layers() == 0; }));
    const int before = listener_.frames;

    dock_->requestFrame();
    EXPECT_TRUE(eventually([&] { return listener_.frames == before + 1; }));
}

TEST_F(VanishingDisplay, ClosesTheMenuOfItsDock) {
    showDock();
    openMenu();
    ASSERT_TRUE(eventually([] { return menus() == 1; }));

    unplug();
    EXPECT_TRUE(eventually([&] { return closedMenus_ == 1; }));
    EXPECT_TRUE(eventually([] { return menus() == 0 && layers() == 0; }));
}

TEST_F(VanishingDisplay, OpensNoMenuOnADockWithoutADisplay) {
    showDock();
    // Qt knows already, but the dock's surface has not been closed yet.
    shell().unplug();
    ASSERT_TRUE(eventually([&] { return screens().screens().empty(); }));

    openMenu();
    EXPECT_EQ(closedMenus_, 1);
    settle();
    EXPECT_EQ(menus(), 0);
}

TEST_F(VanishingDisplay, DestroysADockWithAnOpenMenu) {
    showDock();
    openMenu();
    ASSERT_TRUE(eventually([] { return menus() == 1; }));
    unplug();

    dock_.reset();
    settle();
    EXPECT_EQ(menus(), 0);
    EXPECT_EQ(layers(), 0);
}

}
}
