#include "Display/WindowTest.hpp"
#include "VirtualDesktop/Screen/Pointer.hpp"

#include <QCoreApplication>
#include <QEvent>

namespace vireline {
namespace {

using desktop::Keyboard;
using desktop::PixelRect;
using test::EventLog;

class PopUpMenuTest : public test::WindowTest {
protected:
    /// The only visible override-redirect window.
    static PixelRect menuFrame() {
        for (const xcb_window_t window : client().children(client().root())) {
            const auto frame = client().frame(window);
            if (client().overridesRedirect(window) && client().isViewable(window) && frame &&
                frame->width > 30 && client().hasProperty(window, "_NET_WM_WINDOW_TYPE"))
                return *frame;
        }
        return {};
    }

    MenuCommand command(const std::string& title) {
        return {.title = title, .action = [this, title] {
                    EXPECT_EQ(closed, 1) << "a choice comes once the menu is closed";
                    choice = title;
                }};
    }

    void open(PanelWindow& dock, const std::string& monitor, Point at) {
        desk().pointer().moveTo(pixelAt(monitor, at));
        settle();
        const Menu menu{
            {command("Open"), MenuSeparator{}, command("Tom & Jerry"), command("Quit")}};
        dock.popUpMenu(menu, {at, side}, [this] { ++closed; });
        EXPECT_TRUE(eventually([] { return menuFrame().width > 0; }));
        settle();
    }

    EventLog log;
    MenuPlace::Side side = MenuPlace::Side::above;
    int closed = 0;
    std::string choice;
};

TEST_F(PopUpMenuTest, OpensInsideTheDocksOwnDisplay) {
    for (const auto& monitor : threeMonitors()) {
        const auto dock = showDock(monitor.name, log);
        closed = 0;
        for (const Point at : {Point{5, 40}, Point{200, 80}, Point{395, 40}}) {
            open(*dock, monitor.name, at);
            EXPECT_TRUE(monitor.frame.contains(menuFrame())) << monitor.name << menuFrame();
            desk().keyboard().type(Keyboard::escape);
            EXPECT_TRUE(eventually([] { return menuFrame().width == 0; }));
        }
        EXPECT_TRUE(eventually([&] { return closed == 3; }));
        EXPECT_EQ(choice, "");
    }
}

TEST_F(PopUpMenuTest, OpensOnTheSideThatIsAskedFor) {
    using Side = MenuPlace::Side;
    for (const char* monitor : {"main", "dense"}) {
        const auto dock = showDock(monitor, log);
        const auto at = pixelAt(monitor, {200, 20});
        for (const Side asked : {Side::above, Side::leftOf, Side::rightOf}) {
            side = asked;
            open(*dock, monitor, {200, 20});
            const PixelRect menu = menuFrame();
            constexpr int rounding = 2;
            if (asked == Side::above) {
                EXPECT_NEAR(menu.bottom(), at.y, rounding) << monitor;
                EXPECT_NEAR(menu.center().x, at.x, rounding) << monitor;
            } else {
                const int near = asked == Side::leftOf ? menu.right() : menu.x;
                EXPECT_NEAR(near, at.x, rounding) << monitor;
            }
            desk().keyboard().type(Keyboard::escape);
            EXPECT_TRUE(eventually([] { return menuFrame().width == 0; }));
        }
    }
}

TEST_F(PopUpMenuTest, StaysInsideAtTheDisplaysCorner) {
    const Rect display = screen("dense").frame;
    const auto dock =
        panels.makePanel(idOf("dense"), {display.maxX() - 62, display.minY(), 58, 200}, log);
    dock->present({{{.id = {}, .frame = {0, 0, 58, 200}, .content = GlassNode{18}}}, {}});
    dock->orderFrontRegardless();
    ASSERT_TRUE(eventually([&] { return client().isViewable(windowOf("dense")); }));
    settle();
    open(*dock, "dense", {50, 190});
    EXPECT_TRUE(threeMonitors()[2].frame.contains(menuFrame())) << menuFrame();
    desk().keyboard().type(Keyboard::escape);
    EXPECT_TRUE(eventually([&] { return closed == 1; }));
}

TEST_F(PopUpMenuTest, TellsTheChoiceOnceItIsClosed) {
    const auto dock = showDock("main", log);
    open(*dock, "main", {100, 50});
    const PixelRect frame = menuFrame();
    const desktop::PixelPoint quit{frame.center().x, frame.bottom() - 12};
    // A press before the menu knows of the movement chooses nothing in newer versions of Qt.
    desk().pointer().moveTo(quit);
    settle();
    desk().pointer().click(quit);
    EXPECT_TRUE(eventually([&] { return closed == 1; }));
    EXPECT_EQ(choice, "Quit");
    EXPECT_EQ(menuFrame().width, 0);
}

/// Qt sends this a tenth of a second after a drag has ungrabbed the keyboard.
TEST_F(PopUpMenuTest, StaysOpenWhenQtTakesTheProgramForInactive) {
    const auto dock = showDock("main", log);
    open(*dock, "main", {100, 50});

    QEvent inactive{QEvent::ApplicationDeactivate};
    QCoreApplication::sendEvent(QCoreApplication::instance(), &inactive);
    settle();

    EXPECT_GT(menuFrame().width, 0);
    EXPECT_EQ(closed, 0);
    desk().keyboard().type(Keyboard::escape);
    EXPECT_TRUE(eventually([&] { return closed == 1; }));
}

TEST_F(PopUpMenuTest, TakesKeysAlthoughTheDockHasNoFocus) {
    const auto dock = showDock("main", log);
    open(*dock, "main", {100, 50});
    desk().keyboard().type(Keyboard::down);
    desk().keyboard().type(Keyboard::down);
    desk().keyboard().type(Keyboard::enter);
    EXPECT_TRUE(eventually([&] { return closed == 1; }));
    EXPECT_EQ(choice, "Tom & Jerry");
}

TEST_F(PopUpMenuTest, GoesWithAClickElsewhere) {
    const auto dock = showDock("main", log);
    open(*dock, "main", {100, 50});
    desk().pointer().click({300, 300});
    EXPECT_TRUE(eventually([&] { return closed == 1; }));
    EXPECT_EQ(choice, "");
}

TEST_F(PopUpMenuTest, GoesWithAClickOnItsDockWhichDoesNothingElse) {
    const auto dock = showDock("main", log);
    open(*dock, "main", {10, 50});
    log.words.clear();
    desk().pointer().click(pixelAt("main", {390, 50}));
    EXPECT_TRUE(eventually([&] { return closed == 1; }));
    settle();
    EXPECT_FALSE(log.has("pressed 390,50"));
}

TEST_F(PopUpMenuTest, IsNoReasonToLeaveTheDock) {
    const auto dock = showDock("main", log);
    open(*dock, "main", {100, 50});
    desk().pointer().moveTo({300, 300});
    settle();
    EXPECT_FALSE(log.has("out"));
    desk().keyboard().type(Keyboard::escape);
    EXPECT_TRUE(eventually([&] { return log.has("out"); }));
}

TEST_F(PopUpMenuTest, ClosesWithItsDockWithoutReportingIt) {
    auto dock = showDock("main", log);
    open(*dock, "main", {100, 50});
    dock.reset();
    EXPECT_TRUE(eventually([] { return menuFrame().width == 0; }));
    settle();
    EXPECT_EQ(closed, 0);
}

}
}
