#include "Panels/Menus/MenuPopup.hpp"
#include "Panels/Surfaces/InvisibleSurface.hpp"
#include "WaylandPanels/ShellTest.hpp"

#include <wayland-client.h>

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <algorithm>
#include <memory>
#include <string>

namespace vireline::wayland {
namespace {

/// A menu on a dock at the bottom of the display.
class MenuPopupTest : public ShellTest {
protected:
    void SetUp() override {
        ShellTest::SetUp();
        parent_.emplace(context().menus, *QGuiApplication::primaryScreen(), dock,
                        InvisibleSurface::Events{});
        ASSERT_TRUE(eventually([this] { return parent_->role() != nullptr; }));
        menu_ = std::make_unique<QMenu>();
        menu_->addAction(QStringLiteral("First"));
        menu_->addAction(QStringLiteral("Second"));
        settle();
        (void)shell().requests();
    }
    void TearDown() override {
        shell().setConfigures(true);
        popup_.reset();
        menu_.reset();
        parent_.reset();
        ShellTest::TearDown();
    }

    void open(QPoint corner) {
        popup_.emplace(context().menus, *parent_->role(), *menu_,
                       MenuPopup::Place{*parent_->screen(), dock, corner},
                       [this] { ++dismissals_; });
    }

    static constexpr QRect dock{300, 540, 200, 60};

    std::optional<InvisibleSurface> parent_;
    std::unique_ptr<QMenu> menu_;
    std::optional<MenuPopup> popup_;
    int dismissals_ = 0;
};

TEST_F(MenuPopupTest, IsShownOnceTheCompositorHasPlacedIt) {
    shell().setConfigures(false);
    open({350, 400});
    settle();
    EXPECT_EQ(shell().count("xdg_popup"), 1);
    EXPECT_FALSE(menu_->isVisible());
    const int before = shell().withContent();

    shell().configure(40, -120);
    EXPECT_TRUE(eventually([&] { return shell().withContent() == before + 1; }));
    EXPECT_TRUE(menu_->isVisible());
    EXPECT_EQ(menu_->pos(), dock.topLeft() + QPoint(40, -120));
}

TEST_F(MenuPopupTest, AsksForAPlaceOnItsParent) {
    open({350, 400});
    settle();

    const QSize size = menu_->sizeHint();
    const auto text = [](const char* request, int first, int second) {
        return std::string{"xdg_positioner "} + request + ' ' + std::to_string(first) + ' ' +
               std::to_string(second);
    };
    EXPECT_EQ(shell().requests("xdg_positioner set_"),
              (Requests{text("set_size", size.width(), size.height()),
                        "xdg_positioner set_anchor_rect 50 0 1 1", "xdg_positioner set_anchor 5",
                        "xdg_positioner set_gravity 8", text("set_offset", 0, -140),
                        "xdg_positioner set_constraint_adjustment 3"}));
}

TEST_F(MenuPopupTest, IsOnTheDisplayAsFarAsThereIsRoom) {
    open({790, -20});
    settle();

    const int x = FakeShell::outputWidth - menu_->sizeHint().width() - dock.x();
    const int anchor = dock.width() - 1;
    const auto requests = shell().requests("xdg_positioner set_offset");
    EXPECT_EQ(requests, Requests{"xdg_positioner set_offset " + std::to_string(x - anchor) + ' ' +
                                 std::to_string(-dock.y())});
}

TEST_F(MenuPopupTest, GrabsNoInputWithoutASeat) {
    open({350, 400});
    settle();

    EXPECT_EQ(shell().requests("xdg_popup grab"), Requests{});
}

TEST_F(MenuPopupTest, GrabsTheInputOfASeat) {
    compositor().offer(wl_seat_interface, 5);
    settle();
    open({350, 400});
    settle();
    EXPECT_EQ(shell().requests("xdg_popup grab"), Requests{"xdg_popup grab 0"});

    compositor().withdraw(wl_seat_interface);
    settle();
}

TEST_F(MenuPopupTest, ReportsThatTheCompositorHasDismissedIt) {
    open({350, 400});
    EXPECT_TRUE(eventually([&] { return menu_->isVisible(); }));
    EXPECT_EQ(dismissals_, 0);

    shell().dismissPopups();
    EXPECT_TRUE(eventually([&] { return dismissals_ == 1; }));
}

TEST_F(MenuPopupTest, ReportsThatTheCompositorHasRefusedIt) {
    shell().setConfigures(false);
    open({350, 400});
    settle();

    shell().dismissPopups();
    EXPECT_TRUE(eventually([&] { return dismissals_ == 1; }));
    EXPECT_FALSE(menu_->isVisible());
}

TEST_F(MenuPopupTest, GoesBeforeTheSurfaceOfAMenuThatIsHidden) {
    open({350, 400});
    EXPECT_TRUE(eventually([&] { return menu_->isVisible(); }));
    (void)shell().requests();

    menu_->hide();
    settle();

    EXPECT_EQ(shell().count("xdg_popup"), 0);
    const auto requests = shell().requests();
    const auto at = [&](const char* request) {
        return std::ranges::find(requests, request) - requests.begin();
    };
    EXPECT_LT(at("xdg_popup destroy"), at("xdg_surface destroy"));
    EXPECT_LT(at("xdg_surface destroy"), at("wl_surface destroy"));
    EXPECT_LT(at("wl_surface destroy"), std::ssize(requests));
}

TEST_F(MenuPopupTest, OutlivesItsMenu) {
    open({350, 400});
    EXPECT_TRUE(eventually([&] { return menu_->isVisible(); }));

    menu_->hide();
    menu_.reset();
    settle();
    shell().dismissPopups();
    settle();
    EXPECT_EQ(dismissals_, 0);
}

/// This is what happens when its display is unplugged.
TEST_F(MenuPopupTest, GoesWhileItIsShown) {
    open({350, 400});
    EXPECT_TRUE(eventually([&] { return menu_->isVisible(); }));

    popup_.reset();
    settle();
    EXPECT_EQ(shell().count("xdg_popup"), 0);
}

}
}
