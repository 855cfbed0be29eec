/// Moving windows under a real sway.
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Compositors/CompositorAccessibility.hpp"
#include "Compositors/Sway/SwayPlacer.hpp"
#include "Compositors/Sway/SwayWindowList.hpp"
#include "Toolkit/QtRunLoop.hpp"
#include "VirtualDesktop/Processes/ProcessFigures.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"
#include "Wayland/Compositors/SwayTest.hpp"
#include "Wayland/Fakes/SilentNotices.hpp"

#include <unistd.h>

#include <chrono>
#include <csignal>

namespace vireline::wayland {
namespace {

class SwayAccessibility : public SwayTest {
protected:
    void SetUp() override {
        list_ = SwayWindowList::open(desk().socket(), getpid());
        ASSERT_NE(list_, nullptr);
        apps_.emplace(*list_, notices_, runLoop_, catalog_);
        port_.emplace(std::make_unique<SwayPlacer>(desk().socket(), runLoop_), *apps_,
                      [this] { return primaryCorner_; });
    }
    void TearDown() override {
        port_.reset();
        apps_.reset();
        list_.reset();
        SwayTest::TearDown();
    }

    /// The main window of a program that was started for this.
    ElementHandle run(const std::string& size = "400x300") {
        process_ = desk().run({"--class", "org.example.one", "--size", size}).pid();
        EXPECT_TRUE(test::waitUntil([&] { return apps_->windows("org.example.one").size() == 1; }));
        settle();
        const auto app = port_->application(process_, "org.example.one");
        return port_->mainWindow(*app).value_or(nullptr);
    }
    static void settle() {
        EXPECT_TRUE(desktop::eventually([] { return desk().isSettled(); }));
    }
    [[nodiscard]] static SwayWindow window() { return desk().windows("org.example.one").at(0); }
    [[nodiscard]] static std::string outputShowing(const std::string& workspace) {
        for (const SwayOutput& output : desk().tree().outputs) {
            if (output.workspace == workspace)
                return output.name;
        }
        return {};
    }

    xdg::QtRunLoop runLoop_;
    xdg::DesktopEntryCatalog catalog_{runLoop_, {}};
    SilentNotices notices_;
    std::unique_ptr<SwayWindowList> list_;
    std::optional<xdg::DesktopRunningApplications> apps_;
    Point primaryCorner_;
    std::optional<CompositorAccessibility> port_;
    pid_t process_ = 0;
};

TEST_F(SwayAccessibility, MovesAFloatingWindowWithItsTitleBarToThatPlace) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    desk().command("floating enable");
    settle();
    const Size size = window().frame.size();

    // The last is on the other output.
    for (const Point corner : {Point{100, 150}, Point{0, 0}, Point{1500, 40}}) {
        ASSERT_TRUE(port_->setPosition(*element, corner));
        EXPECT_EQ(window().frame, (Rect{corner.x, corner.y, size.width, size.height}));
        EXPECT_EQ(port_->position(*element), Result<Point>{corner});
        EXPECT_EQ(port_->size(*element), Result<Size>{size});
    }
    EXPECT_EQ(outputShowing(window().workspace), "HEADLESS-2");
}

TEST_F(SwayAccessibility, CountsFromThePrimaryDisplaysCorner) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    desk().command("floating enable");
    settle();
    primaryCorner_ = {1280, 0};

    ASSERT_TRUE(port_->setPosition(*element, {-900, 60}));

    EXPECT_EQ(window().frame.origin(), (Point{380, 60}));
    EXPECT_EQ(port_->position(*element), (Result<Point>{Point{-900, 60}}));
}

TEST_F(SwayAccessibility, BringsATiledWindowToTheOtherOutputAndLeavesItTiled) {
    const auto element = run();
    ASSERT_NE(element, nullptr);

    ASSERT_TRUE(port_->setPosition(*element, {1700, 200}));

    EXPECT_FALSE(window().isFloating);
    EXPECT_EQ(outputShowing(window().workspace), "HEADLESS-2");
    EXPECT_EQ(window().frame, (Rect{1280, 0, 1280, 720}));
}

TEST_F(SwayAccessibility, FillsAPlaceWithATiledWindow) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    const Rect wanted{1280, 0, 1280, 640};

    ASSERT_TRUE(port_->setPosition(*element, wanted.origin()));
    ASSERT_TRUE(port_->setSize(*element, wanted.size()));
    ASSERT_TRUE(port_->setPosition(*element, wanted.origin()));

    EXPECT_TRUE(test::waitUntil([&] { return window().frame == wanted; }));
    EXPECT_EQ(port_->size(*element), Result<Size>{wanted.size()});
}

TEST_F(SwayAccessibility, CorrectsAFilledWindowThatRevertsItsSize) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    desk().command("floating enable");
    settle();
    const Rect wanted{100, 50, 800, 600};

    ASSERT_TRUE(port_->setPosition(*element, wanted.origin()));
    ASSERT_TRUE(port_->setSize(*element, wanted.size()));
    desk().command("[app_id=org.example.one] resize set 500 px 400 px");

    EXPECT_NE(window().frame, wanted);
    EXPECT_TRUE(test::waitUntil([&] { return window().frame == wanted; }));
}

TEST_F(SwayAccessibility, LeavesAWindowToTheUserThatWasMovedElsewhere) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    desk().command("floating enable");
    settle();
    ASSERT_TRUE(port_->setSize(*element, {800, 600}));
    settle();

    ASSERT_TRUE(port_->setPosition(*element, {300, 40}));
    desk().command("[app_id=org.example.one] resize set 500 px 400 px");
    settle();
    const Rect chosen = window().frame;

    EXPECT_FALSE(desktop::eventually(
        [&] {
            test::deliverPendingEvents();
            return window().frame != chosen;
        },
        std::chrono::milliseconds{700}));
}

TEST_F(SwayAccessibility, FetchesAWindowFromAWorkspaceThatIsNotShown) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    desk().command("workspace 9");
    EXPECT_FALSE(window().isVisible);

    ASSERT_TRUE(port_->setPosition(*element, {200, 100}));

    EXPECT_TRUE(window().isVisible);
    EXPECT_EQ(outputShowing(window().workspace), "HEADLESS-1");
}

TEST_F(SwayAccessibility, FailsWithAWindowThatIsGone) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    desk().closeAll();

    EXPECT_FALSE(port_->position(*element));
    EXPECT_FALSE(port_->size(*element));
    EXPECT_FALSE(port_->setPosition(*element, {1, 2}));
    EXPECT_FALSE(port_->setSize(*element, {300, 200}));
    EXPECT_TRUE(port_->canMoveWindows());
}

TEST_F(SwayAccessibility, FailsInTimeWhileSwayHangsAndWorksAgainAfterwards) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    port_->setMessagingTimeout(*element, 0.05F);

    ::kill(desk().process(), SIGSTOP);
    const desktop::UndisturbedTime time{{getpid()}};
    const auto position = port_->position(*element);
    const auto elapsed = time.elapsed();
    ::kill(desk().process(), SIGCONT);

    EXPECT_FALSE(position);
    EXPECT_LT(elapsed, std::chrono::milliseconds{400}) << elapsed.count();
    port_->setMessagingTimeout(*element, 5);
    EXPECT_TRUE(port_->position(*element));
}

TEST_F(SwayAccessibility, IsMissingUnderCompositorsWithoutAWayToMoveWindows) {
    const auto element = run();
    ASSERT_NE(element, nullptr);
    CompositorAccessibility port{nullptr, *apps_, [] { return Point{}; }};

    EXPECT_FALSE(port.canMoveWindows());
    EXPECT_FALSE(port.isTrusted());
    EXPECT_FALSE(port.isTrustedWithPrompt());
    EXPECT_FALSE(port.position(*element));
    EXPECT_FALSE(port.setPosition(*element, {1, 2}));
    EXPECT_FALSE(port.setSize(*element, {300, 200}));
}

TEST_F(SwayAccessibility, ListsAnAppsWindowsByTitleAndBringsOneForward) {
    ASSERT_NE(run(), nullptr);
    const auto app = port_->application(process_, "org.example.one");
    const auto open = port_->openWindows(*app);
    ASSERT_TRUE(open);
    ASSERT_EQ(open->size(), 1U);
    EXPECT_EQ(open->at(0).title, window().title);
    EXPECT_TRUE(port_->bringForward(*open->at(0).element));
    EXPECT_TRUE(test::waitUntil([&] { return window().isFocused; }));
}

}
}
