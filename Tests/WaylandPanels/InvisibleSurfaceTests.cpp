/// The invisible surface that takes keys and clicks, and the menu that opens from it.
#include "Connection/QtNative.hpp"
#include "Panels/Menus/DockMenu.hpp"
#include "Panels/Surfaces/InvisibleSurface.hpp"
#include "WaylandPanels/ShellTest.hpp"

#include <wayland-client.h>

#include <QEnterEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vireline::wayland {
namespace {

constexpr QRect coveredPlace{300, 540, 200, 60};
constexpr const char* keyboardRequest = "zwlr_layer_surface_v1 set_keyboard_interactivity 1";
constexpr const char* contentRequest = "wl_surface attach 0 0";

void click(InvisibleSurface& surface) {
    const QPointF at{5, 5};
    QMouseEvent press{QEvent::MouseButtonPress, at,
                      surface.mapToGlobal(at),  Qt::LeftButton,
                      Qt::LeftButton,           Qt::NoModifier};
    QCoreApplication::sendEvent(&surface, &press);
}

void pressKey(InvisibleSurface& surface, int key) {
    QKeyEvent press{QEvent::KeyPress, key, Qt::NoModifier};
    QCoreApplication::sendEvent(&surface, &press);
}

/// The position of a request among all; behind them if it is missing.
std::ptrdiff_t positionOf(const RequestLog::Requests& requests, const std::string& wanted) {
    return std::ranges::find(requests, wanted) - requests.begin();
}

class InvisibleSurfaceTest : public ShellTest {
protected:
    void SetUp() override {
        ShellTest::SetUp();
        surface_ = InvisibleSurface::make(
            context().menus, *QGuiApplication::primaryScreen(), coveredPlace,
            {.shown = [this] { events_.emplace_back("shown"); },
             .pointed = [this](InvisibleSurface& /*self*/,
                               QPoint /*at*/) { events_.emplace_back("pointed"); },
             .pressed = [this] { events_.emplace_back("pressed"); },
             .keyPressed = [this](QKeyEvent& /*event*/) { events_.emplace_back("key"); },
             .closed = [this] { events_.emplace_back("closed"); }});
    }
    void TearDown() override {
        surface_.reset();
        shell().setConfigures(true);
        settle();
        ShellTest::TearDown();
    }
    void awaitShown() {
        ASSERT_TRUE(eventually([this] { return !events_.empty(); }));
    }

    InvisibleSurface::Retiring surface_;
    std::vector<std::string> events_;
};

TEST_F(InvisibleSurfaceTest, TakesTheKeyboardOnlyOnceItIsShown) {
    shell().setConfigures(false);
    surface_->takeKeyboard();
    EXPECT_EQ(surface_->role(), nullptr);
    shell().setConfigures(true);
    shell().configure();
    awaitShown();
    settle();

    const Requests requests = shell().requests();
    const auto keyboard = positionOf(requests, keyboardRequest);
    EXPECT_LT(keyboard, std::ssize(requests));
    const auto content = std::ranges::find(requests, contentRequest);
    ASSERT_NE(content, requests.end());
    const auto commit = std::find(content, requests.end(), "wl_surface commit");
    EXPECT_GT(keyboard, commit - requests.begin()) << "not before its first content is committed";
    EXPECT_EQ(std::ranges::count(requests, keyboardRequest), 1);
}

TEST_F(InvisibleSurfaceTest, TakesTheKeyboardAtOnceWhenItIsShownAlready) {
    awaitShown();
    settle();
    (void)shell().requests();

    surface_->takeKeyboard();
    settle();

    EXPECT_EQ(shell().requests("zwlr_layer_surface_v1"), Requests{keyboardRequest});
}

TEST_F(InvisibleSurfaceTest, LeavesTheKeyboardAloneUnlessAsked) {
    awaitShown();
    settle();
    const Requests requests = shell().requests();
    EXPECT_EQ(std::ranges::count(requests, keyboardRequest), 0);
}

TEST_F(InvisibleSurfaceTest, ReportsWhatHappensOnIt) {
    awaitShown();
    click(*surface_);
    pressKey(*surface_, Qt::Key_Escape);

    EXPECT_EQ(events_, (std::vector<std::string>{"shown", "pressed", "key"}));
}

TEST_F(InvisibleSurfaceTest, ReportsThatItsDisplayIsGone) {
    awaitShown();
    shell().closeLayers();
    EXPECT_TRUE(eventually([&] { return std::ranges::count(events_, "closed") > 0; }));
}

TEST_F(InvisibleSurfaceTest, ReportsNothingOnceItIsRetired) {
    awaitShown();
    events_.clear();
    InvisibleSurface* const retired = surface_.get();
    surface_.reset();

    click(*retired);
    pressKey(*retired, Qt::Key_Escape);
    QEnterEvent enter{{5, 5}, {5, 5}, {305, 545}};
    QCoreApplication::sendEvent(retired, &enter);
    shell().closeLayers();
    // It still exists when this arrives, since nothing has been deleted so far.
    wl_display_roundtrip(QtNative::display());

    EXPECT_EQ(events_, std::vector<std::string>{});
}

TEST_F(InvisibleSurfaceTest, IsNotShownIfItIsRetiredBefore) {
    shell().setConfigures(false);
    surface_.reset();
    shell().configure();
    settle();

    EXPECT_EQ(events_, std::vector<std::string>{});
}

class DockMenuTest : public ShellTest {
protected:
    void SetUp() override {
        compositor().offer(wl_seat_interface, 5);
        settle();
        ShellTest::SetUp();
        menu_ = std::make_unique<QMenu>();
        menu_->addAction(QStringLiteral("First"));
        menu_->addAction(QStringLiteral("Second"));
    }
    void TearDown() override {
        shown_.reset();
        menu_.reset();
        shell().setConfigures(true);
        compositor().withdraw(wl_seat_interface);
        settle();
        ShellTest::TearDown();
    }
    void open() {
        shown_ = std::make_unique<DockMenu>(
            context().menus, *menu_,
            DockMenu::Place{*QGuiApplication::primaryScreen(), coveredPlace, {350, 400}},
            [this] { ++dismissals_; });
    }
    void openAndWait() {
        open();
        ASSERT_TRUE(eventually([this] { return menu_->isVisible(); }));
    }
    /// The surface from which the menu has opened.
    [[nodiscard]] static InvisibleSurface& cover() {
        for (QWindow* const window : QGuiApplication::topLevelWindows()) {
            if (auto* const found = dynamic_cast<InvisibleSurface*>(window))
                return *found;
        }
        throw std::runtime_error{"no cover"};
    }

    std::unique_ptr<QMenu> menu_;
    std::unique_ptr<DockMenu> shown_;
    int dismissals_ = 0;
};

/// During a popup's grab, compositors give the keyboard to no other surface.
TEST_F(DockMenuTest, HasTheKeyboardBeforeItsPopupGrabsTheInput) {
    openAndWait();
    settle();

    const Requests requests = shell().requests();
    const auto content = positionOf(requests, contentRequest);
    const auto keyboard = positionOf(requests, keyboardRequest);
    const auto grab =
        std::ranges::find_if(
            requests, [](const std::string& each) { return each.starts_with("xdg_popup grab"); }) -
        requests.begin();
    EXPECT_LT(content, keyboard);
    EXPECT_LT(keyboard, grab);
    EXPECT_LT(grab, std::ssize(requests));
}

TEST_F(DockMenuTest, IsNotOpenedBeforeItsCoverIsShown) {
    shell().setConfigures(false);
    open();
    settle();

    EXPECT_EQ(shell().count("xdg_popup"), 0);
    EXPECT_FALSE(menu_->isVisible());
}

TEST_F(DockMenuTest, IsClosedByAClickOnItsDock) {
    openAndWait();
    EXPECT_EQ(cover().geometry(), coveredPlace);

    click(cover());

    EXPECT_EQ(dismissals_, 1);
}

TEST_F(DockMenuTest, IsClosedIfTheCompositorDismissesIt) {
    openAndWait();
    shell().dismissPopups();
    EXPECT_TRUE(eventually([this] { return dismissals_ == 1; }));
}

TEST_F(DockMenuTest, IsClosedWhenItsDisplayIsGone) {
    openAndWait();
    shell().closeLayers();

    EXPECT_TRUE(eventually([this] { return dismissals_ >= 1; }));
    EXPECT_EQ(shell().count("xdg_popup"), 0);
}

TEST_F(DockMenuTest, GetsTheKeysOfItsCover) {
    openAndWait();
    pressKey(cover(), Qt::Key_Down);
    EXPECT_EQ(menu_->activeAction(), menu_->actions().front());

    pressKey(cover(), Qt::Key_Down);
    EXPECT_EQ(menu_->activeAction(), menu_->actions().back());
}

TEST_F(DockMenuTest, TakesItsCoverAlong) {
    openAndWait();
    menu_->hide();
    shown_.reset();
    settle();

    EXPECT_EQ(shell().count("xdg_popup"), 0);
    EXPECT_EQ(std::ranges::count_if(QGuiApplication::topLevelWindows(),
                                    [](QWindow* window) {
                                        return dynamic_cast<InvisibleSurface*>(window) != nullptr;
                                    }),
              0);
    EXPECT_EQ(dismissals_, 0);
}

}
}
