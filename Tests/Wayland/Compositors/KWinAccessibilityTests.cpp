/// Moving windows under a real KWin.
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Compositors/CompositorAccessibility.hpp"
#include "Compositors/KWin/KWinPlacer.hpp"
#include "Toolkit/QtRunLoop.hpp"
#include "VirtualDesktop/Processes/ProcessFigures.hpp"
#include "Wayland/Compositors/KWinTest.hpp"
#include "Wayland/Fakes/SilentNotices.hpp"

#include <unistd.h>

#include <chrono>
#include <csignal>

namespace vireline::wayland {
namespace {

constexpr const char* app = "org.example.one";

class KWinAccessibility : public KWinTest {
protected:
    void SetUp() override {
        KWinTest::SetUp();
        if (!list_)
            return;
        apps_.emplace(*list_, notices_, runLoop_, catalog_);
        port_.emplace(std::make_unique<KWinPlacer>(*list_, connectTo(desk().bus())), *apps_,
                      [this] { return primaryCorner_; });
        EXPECT_TRUE(eventually([this] { return port_->canMoveWindows(); }));
    }
    void TearDown() override {
        port_.reset();
        apps_.reset();
        KWinTest::TearDown();
    }

    static KWinConnection::Connect connectTo(const std::string& address) {
        return [address](const std::function<void(Result<KWinConnection::Bus>)>& done) {
            done(KWinConnection::Bus{g_dbus_connection_new_for_address_sync(
                address.c_str(),
                static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                  G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
                nullptr, nullptr, nullptr)});
        };
    }

    /// The main window of a program that was started for this, once it is drawn.
    ElementHandle runOne(const std::string& size = "400x300") {
        process_ = run(app, {"--size", size});
        EXPECT_TRUE(eventually([&] { return list_->activeWindow() != xdg::WindowID::none; }));
        // KWin 6 may open it on either output.
        onWindow("window.frameGeometry = {x: 100, y: 100, width: window.frameGeometry.width, "
                 "height: window.frameGeometry.height};");
        return port_->mainWindow(*port_->application(process_, app)).value_or(nullptr);
    }
    [[nodiscard]] KWinDesktop::Window now() const { return actual(window(0).id); }
    /// Whether KWin gives the window that frame, and the program has learnt of it.
    [[nodiscard]] bool arrives(const ElementHandle& element, const Rect& frame) {
        return eventually([&] {
            return now().frame == frame && port_->position(*element) == frame.origin() &&
                   port_->size(*element) == frame.size();
        });
    }
    void onWindow(const std::string& statements) {
        desk().script("(workspace.windowList ? workspace.windowList() : workspace.clientList())"
                      ".forEach(function(window) { if (window.resourceClass == '" +
                      std::string{app} + "') {" + statements + "} });");
    }

    xdg::QtRunLoop runLoop_;
    xdg::DesktopEntryCatalog catalog_{runLoop_, {}};
    SilentNotices notices_;
    std::optional<xdg::DesktopRunningApplications> apps_;
    Point primaryCorner_;
    std::optional<CompositorAccessibility> port_;
    pid_t process_ = 0;
};

TEST_F(KWinAccessibility, MovesAWindowToThatPlace) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);

    // The last is on the other output.
    for (const Point corner : {Point{100, 150}, Point{0, 0}, Point{1500, 40}}) {
        ASSERT_TRUE(port_->setPosition(*element, corner));
        EXPECT_TRUE(arrives(element, {corner.x, corner.y, 400, 300})) << now().frame;
    }
}

TEST_F(KWinAccessibility, CountsFromThePrimaryDisplaysCorner) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    primaryCorner_ = {1280, 0};

    ASSERT_TRUE(port_->setPosition(*element, {-900, 60}));

    EXPECT_TRUE(eventually([&] {
        return now().frame == Rect{380, 60, 400, 300} &&
               port_->position(*element) == Point{-900, 60};
    })) << now().frame;
}

TEST_F(KWinAccessibility, GivesAWindowItsSize) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);

    ASSERT_TRUE(port_->setPosition(*element, {1280, 0}));
    ASSERT_TRUE(port_->setSize(*element, {1280, 640}));
    ASSERT_TRUE(port_->setPosition(*element, {1280, 0}));

    EXPECT_TRUE(arrives(element, {1280, 0, 1280, 640})) << now().frame;
}

TEST_F(KWinAccessibility, TakesAMaximisedWindowToTheOtherDisplayAndKeepsItMaximised) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    onWindow("window.setMaximize(true, true);");
    ASSERT_TRUE(arrives(element, {0, 0, 1280, 720})) << now().frame;

    ASSERT_TRUE(port_->setPosition(*element, {1700, 100}));

    EXPECT_TRUE(arrives(element, {1280, 0, 1280, 720})) << now().frame;
    EXPECT_TRUE(now().isMaximised);
    onWindow("window.setMaximize(false, false);");
    EXPECT_TRUE(eventually([&] { return now().frame.size() == Size{400, 300}; })) << now().frame;
}

TEST_F(KWinAccessibility, GivesAMaximisedWindowItsSize) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    onWindow("window.setMaximize(true, true);");
    ASSERT_TRUE(arrives(element, {0, 0, 1280, 720})) << now().frame;

    ASSERT_TRUE(port_->setPosition(*element, {1280, 0}));
    ASSERT_TRUE(port_->setSize(*element, {1280, 640}));
    ASSERT_TRUE(port_->setPosition(*element, {1280, 0}));

    EXPECT_TRUE(arrives(element, {1280, 0, 1280, 640})) << now().frame;
    EXPECT_FALSE(now().isMaximised);
}

TEST_F(KWinAccessibility, TakesAFullScreenWindowToTheOtherDisplay) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    onWindow("window.fullScreen = true;");
    ASSERT_TRUE(arrives(element, {0, 0, 1280, 720})) << now().frame;

    ASSERT_TRUE(port_->setPosition(*element, {1280, 0}));

    EXPECT_TRUE(arrives(element, {1280, 0, 1280, 720})) << now().frame;
    EXPECT_FALSE(now().isMaximised);
}

/// A program that draws late must not get its former size back.
TEST_F(KWinAccessibility, KeepsTheSizeThatTheProgramHasYetToDraw) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    kill(process_, SIGSTOP);
    EXPECT_TRUE(port_->setPosition(*element, {1280, 0}));
    EXPECT_TRUE(port_->setSize(*element, {900, 500}));
    EXPECT_TRUE(port_->setPosition(*element, {1280, 0}));
    kill(process_, SIGCONT);

    EXPECT_TRUE(arrives(element, {1280, 0, 900, 500})) << now().frame;
}

TEST_F(KWinAccessibility, ShowsAMinimisedWindowWhenItMovesIt) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    list_->iconify(window(0).id);
    ASSERT_TRUE(eventually([&] { return now().isMinimised; }));

    ASSERT_TRUE(port_->setPosition(*element, {40, 50}));

    EXPECT_TRUE(arrives(element, {40, 50, 400, 300})) << now().frame;
    EXPECT_FALSE(now().isMinimised);
}

TEST_F(KWinAccessibility, SaysThatAWindowIsGone) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    desk().endPrograms();
    ASSERT_TRUE(eventually([&] { return list_->windows().empty(); }));

    EXPECT_FALSE(port_->position(*element));
    EXPECT_FALSE(port_->setPosition(*element, {1, 1}));
    EXPECT_FALSE(port_->setSize(*element, {100, 100}));
}

TEST_F(KWinAccessibility, WaitsNoLongerThanToldForAKWinThatHangs) {
    const auto element = runOne();
    ASSERT_NE(element, nullptr);
    port_->setMessagingTimeout(*element, 0.1F);
    kill(desk().process(), SIGSTOP);
    const auto start = std::chrono::steady_clock::now();
    const desktop::UndisturbedTime time{{getpid()}};

    const auto outcome = port_->setPosition(*element, {1, 1});

    const auto undisturbed = time.elapsed();
    const auto taken = std::chrono::steady_clock::now() - start;
    kill(desk().process(), SIGCONT);
    EXPECT_FALSE(outcome);
    EXPECT_GE(taken, std::chrono::milliseconds{90});
    EXPECT_LT(undisturbed, std::chrono::milliseconds{450}) << undisturbed.count();
}

/// The same holds for a bus that KWin is not on.
TEST(KWinPlacer, MovesNothingWithoutKWinOnTheBus) {
    KWinConnection connection{
        [](const auto& done) { done(std::unexpected{PlatformError{1, "no bus"}}); }};

    EXPECT_FALSE(connection.isAvailable());
    EXPECT_FALSE(connection.run("", 0.1));
}

TEST(KWinScripts, TakeNoScriptFromAnID) {
    const KWinWindow hostile{.uuid = "{ab-12}\"; callDBus(); //", .frame = {}};

    EXPECT_NE(KWinScripts::move(hostile, {}).find("var id = \"{ab-12}caDB\";"), std::string::npos)
        << KWinScripts::move(hostile, {});
}

}
}
