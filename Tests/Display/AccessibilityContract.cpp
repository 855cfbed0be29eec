/// The contract of Accessibility, run against the fake and the real adapter. The real one uses
/// separate programs and a window manager, so its requests take effect with a delay.
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/EwmhRunningApplications.hpp"
#include "ClientWindows/EwmhAccessibility.hpp"
#include "Display/WindowTest.hpp"
#include "Support/FakeAccessibility.hpp"
#include "Toolkit/QtRunLoop.hpp"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <map>

namespace vireline {
namespace {

enum class Kind : std::uint8_t { normal, dialogs, ofUnknownProcess };

/// A running program; its windows are numbered from 0, the oldest.
struct Program {
    std::string bundleID;
    /// 0 if the port cannot know it.
    std::int32_t process = 0;
};

class FakeDesktop : public testing::Test {
protected:
    Program run(std::size_t windows, Kind kind = Kind::normal) {
        ++started_;
        const Program program{"program-" + std::to_string(started_),
                              kind == Kind::ofUnknownProcess ? 0 : 100 + started_};
        RunningApplication app;
        app.bundleID = program.bundleID;
        app.processIdentifier = program.process;
        for (std::size_t i = 0; i < windows; ++i) {
            auto& window = port.addWindow(app, {20, 30, 320, 200});
            window.isDialog = kind == Kind::dialogs;
            windows_[program.bundleID].push_back(&window);
        }
        return program;
    }

    void activate(const Program& program, std::size_t window) {
        port.activate(*windows_[program.bundleID].at(window));
    }
    void close(const Program& program, std::size_t window) {
        auto& windows = windows_[program.bundleID];
        port.close(*windows.at(window));
        windows.erase(windows.begin() + static_cast<std::ptrdiff_t>(window));
    }
    void end(const Program& program) {
        while (!windows_[program.bundleID].empty())
            close(program, 0);
    }

    [[nodiscard]] Rect outerFrame(const Program& program, std::size_t window) {
        return windows_[program.bundleID].at(window)->frame;
    }
    /// Sets a minimum size that exceeds the window's current size.
    void setMinimumSize(const Program& program, std::size_t window, Size outer) {
        windows_[program.bundleID].at(window)->minimumSize = outer;
    }

    void withdrawPermission() { port.trusted = false; }
    void grantPermission() { port.trusted = true; }
    void loseTheAbilityToMoveWindows() { port.movesWindows = false; }
    void regainTheAbilityToMoveWindows() { port.movesWindows = true; }
    void stopAnswering() { port.answers = false; }
    void answerAgain() { port.answers = true; }

    template <class Condition>
    static bool eventually(const Condition& condition) {
        return condition();
    }

    test::FakeAccessibility port;

private:
    int started_ = 0;
    std::map<std::string, std::vector<test::FakeWindow*>> windows_;
};

class EwmhDesktop : public test::WindowTest {
protected:
    void TearDown() override {
        answerAgain();
        if (!isManaged_)
            grantPermission();
        for (auto& [bundleID, running] : running_)
            running.process->signal(SIGKILL);
        EXPECT_TRUE(eventually([] { return client().managedWindows().empty(); }));
        WindowTest::TearDown();
    }

    Program run(std::size_t windows, Kind kind = Kind::normal) {
        const std::string bundleID = "program-" + std::to_string(running_.size() + 1);
        std::vector<std::string> arguments{"--class", bundleID, "--windows",
                                           std::to_string(windows)};
        if (kind == Kind::dialogs)
            arguments.insert(arguments.end(), {"--type", "DIALOG"});
        if (kind == Kind::ofUnknownProcess)
            arguments.insert(arguments.end(), {"--property", "WM_CLIENT_MACHINE=another"});
        auto& process = desk().run(TEST_APP, std::move(arguments));
        EXPECT_TRUE(eventually([&] { return applications_.windows(bundleID).size() == windows; }));
        auto ids = windowsOf(bundleID);
        // A program numbers its windows in order of creation.
        std::ranges::sort(ids);
        running_.insert_or_assign(bundleID, Running{&process, std::move(ids)});
        return {bundleID, kind == Kind::ofUnknownProcess ? 0 : process.pid()};
    }

    void activate(const Program& program, std::size_t window) {
        constexpr std::uint32_t fromPager = 2;
        const auto id = idOf(program, window);
        client().sendToRoot(id, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME});
        EXPECT_TRUE(eventually([&] { return client().activeWindow() == id; }));
        settle();
    }
    void close(const Program& program, std::size_t window) {
        client().destroy(idOf(program, window));
        client().sync();
        auto& windows = running_.at(program.bundleID).windows;
        windows.erase(windows.begin() + static_cast<std::ptrdiff_t>(window));
    }
    void end(const Program& program) { running_.at(program.bundleID).process->signal(SIGKILL); }

    /// All displays have one pixel per point, except the one on the right.
    [[nodiscard]] Rect outerFrame(const Program& program, std::size_t window) {
        const auto id = idOf(program, window);
        const auto inner = client().frame(id).value_or(desktop::PixelRect{});
        const Sides sides = decoration(id);
        const auto primary = desk().monitor("main").frame;
        return {inner.x - sides.left - primary.x, inner.y - sides.top - primary.y,
                inner.width + sides.left + sides.right, inner.height + sides.top + sides.bottom};
    }
    void setMinimumSize(const Program& program, std::size_t window, Size outer) {
        constexpr std::uint32_t hasMinimum = 1U << 4U;
        const auto id = idOf(program, window);
        const Sides sides = decoration(id);
        std::vector<std::uint32_t> hints(18, 0);
        hints[0] = hasMinimum;
        hints[5] = static_cast<std::uint32_t>(outer.width - sides.left - sides.right);
        hints[6] = static_cast<std::uint32_t>(outer.height - sides.top - sides.bottom);
        client().setWords(id, "WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, hints);
        // The window manager enlarges the window at once, and may move it.
        EXPECT_TRUE(eventually([&] { return outerFrame(program, window).size() == outer; }));
    }

    void withdrawPermission() {
        desk().stopWindowManager();
        isManaged_ = false;
    }
    void grantPermission() {
        desk().startWindowManager();
        isManaged_ = true;
    }
    /// The window manager keeps running, but no longer announces that it moves windows.
    void loseTheAbilityToMoveWindows() {
        supported_ = client().words(client().root(), "_NET_SUPPORTED");
        auto fewer = supported_;
        std::erase(fewer, client().atom("_NET_MOVERESIZE_WINDOW"));
        client().setWords(client().root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, fewer);
        client().sync();
    }
    void regainTheAbilityToMoveWindows() {
        client().setWords(client().root(), "_NET_SUPPORTED", XCB_ATOM_ATOM, supported_);
        client().sync();
    }
    static void stopAnswering() { ::kill(desk().server(), SIGSTOP); }
    static void answerAgain() { ::kill(desk().server(), SIGCONT); }

private:
    struct Running {
        desktop::ChildProcess* process;
        std::vector<xcb_window_t> windows;
    };
    struct Sides {
        double left = 0;
        double right = 0;
        double top = 0;
        double bottom = 0;
    };

    using WindowTest::idOf;
    [[nodiscard]] xcb_window_t idOf(const Program& program, std::size_t window) const {
        return running_.at(program.bundleID).windows.at(window);
    }

    [[nodiscard]] static std::vector<xcb_window_t> windowsOf(const std::string& bundleID) {
        auto windows = client().managedWindows();
        std::erase_if(windows, [&](xcb_window_t window) {
            return !client().text(window, "WM_CLASS").starts_with(bundleID + '\0');
        });
        return windows;
    }

    [[nodiscard]] static Sides decoration(xcb_window_t window) {
        const auto extents = client().words(window, "_NET_FRAME_EXTENTS");
        if (extents.size() < 4)
            return {};
        return {static_cast<double>(extents[0]), static_cast<double>(extents[1]),
                static_cast<double>(extents[2]), static_cast<double>(extents[3])};
    }

    x11::QtRunLoop runLoop_;
    x11::DesktopEntryCatalog catalog_{runLoop_, {}};
    x11::EwmhRunningApplications applications_{connection, runLoop_, catalog_};
    std::map<std::string, Running> running_;
    bool isManaged_ = true;
    std::vector<std::uint32_t> supported_;

protected:
    x11::EwmhAccessibility port{connection, runLoop_, applications_, screens};
};

template <class Value>
testing::AssertionResult fails(const Result<Value>& outcome) {
    if (outcome)
        return testing::AssertionFailure() << "it succeeds";
    if (outcome.error().code == 0 || outcome.error().description.empty())
        return testing::AssertionFailure() << "the error tells nothing: " << outcome.error();
    return testing::AssertionSuccess();
}

template <class Desktop>
class AccessibilityContract : public Desktop {
protected:
    ElementHandle app(const Program& program) {
        return this->port.application(program.process, program.bundleID);
    }

    std::vector<ElementHandle> windows(const Program& program) {
        return this->port.windows(*app(program)).value_or(std::vector<ElementHandle>{});
    }

    /// A program whose windows have different corners, in their listed order.
    Program runPlaced(std::size_t count) {
        const Program program = this->run(count);
        const auto elements = windows(program);
        EXPECT_EQ(elements.size(), count);
        for (std::size_t i = 0; i < elements.size(); ++i)
            EXPECT_TRUE(this->port.setPosition(*elements[i], corner(i)));
        for (std::size_t i = 0; i < elements.size(); ++i)
            EXPECT_TRUE(this->eventually([&] { return isAt(*elements[i], corner(i)); }));
        return program;
    }

    static Point corner(std::size_t window) {
        return {100 + 250 * static_cast<double>(window), 150};
    }

    ElementHandle window(const Program& program, std::size_t index = 0) {
        return windows(program).at(index);
    }

    bool isAt(AccessibilityElement& element, Point corner) {
        return this->port.position(element) == Result<Point>{corner};
    }

    bool isMain(const Program& program, std::size_t window) {
        const auto main = this->port.mainWindow(*app(program));
        return main && *main && isAt(**main, corner(window));
    }

    testing::AssertionResult comesTo(const Program& program, const Rect& frame) {
        if (this->eventually([&] { return this->outerFrame(program, 0) == frame; }))
            return testing::AssertionSuccess();
        return testing::AssertionFailure()
               << "the window is at " << this->outerFrame(program, 0) << " and not at " << frame;
    }

    /// Whether every call about the window fails.
    testing::AssertionResult failsAtAll(AccessibilityElement& window) {
        auto outcome = fails(this->port.position(window));
        outcome = outcome ? fails(this->port.size(window)) : outcome;
        outcome = outcome ? fails(this->port.setPosition(window, {1, 2})) : outcome;
        return outcome ? fails(this->port.setSize(window, {300, 200})) : outcome;
    }
};

struct Names {
    template <class Desktop>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<Desktop, FakeDesktop> ? "Fake" : "Ewmh";
    }
};

using Desktops = testing::Types<FakeDesktop, EwmhDesktop>;
TYPED_TEST_SUITE(AccessibilityContract, Desktops, Names);

TYPED_TEST(AccessibilityContract, IsTrustedForAsLongAsThePermissionIsThere) {
    EXPECT_TRUE(this->port.isTrusted());

    this->withdrawPermission();
    EXPECT_TRUE(this->eventually([&] { return !this->port.isTrusted(); }));

    this->grantPermission();
    EXPECT_TRUE(this->eventually([&] { return this->port.isTrusted(); }));
}

TYPED_TEST(AccessibilityContract, AsksForThePermissionAndTellsWhetherItIsThere) {
    EXPECT_TRUE(this->port.isTrustedWithPrompt());

    this->withdrawPermission();

    EXPECT_TRUE(this->eventually([&] { return !this->port.isTrustedWithPrompt(); }));
}

TYPED_TEST(AccessibilityContract, TellsWhetherThisDesktopLetsWindowsBeMoved) {
    EXPECT_TRUE(this->port.canMoveWindows());

    this->loseTheAbilityToMoveWindows();
    EXPECT_TRUE(this->eventually([&] { return !this->port.canMoveWindows(); }));
    EXPECT_FALSE(this->port.isTrusted());

    this->regainTheAbilityToMoveWindows();
    EXPECT_TRUE(this->eventually([&] { return this->port.canMoveWindows(); }));
    EXPECT_TRUE(this->port.isTrusted());
}

TYPED_TEST(AccessibilityContract, ListsTheWindowsOldestFirst) {
    const Program program = this->runPlaced(3);

    this->activate(program, 1);

    for (std::size_t i = 0; i < 3; ++i) {
        const Rect frame = this->outerFrame(program, i);
        EXPECT_EQ((Point{frame.x, frame.y}), this->corner(i)) << i;
    }
    const auto windows = this->windows(program);
    ASSERT_EQ(windows.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_TRUE(this->isAt(*windows[i], this->corner(i))) << i;
}

TYPED_TEST(AccessibilityContract, TakesTheNewestWindowForTheMainOne) {
    const Program program = this->runPlaced(2);

    EXPECT_TRUE(this->eventually([&] { return this->isMain(program, 1); }));
}

TYPED_TEST(AccessibilityContract, TakesTheWindowThatWasActiveLastForTheMainOne) {
    const Program program = this->runPlaced(3);

    for (const std::size_t active : {2U, 0U, 1U}) {
        this->activate(program, active);
        EXPECT_TRUE(this->eventually([&] { return this->isMain(program, active); })) << active;
    }
}

TYPED_TEST(AccessibilityContract, TakesAnotherWindowForTheMainOneOnceThatIsClosed) {
    const Program program = this->runPlaced(2);
    this->activate(program, 0);

    this->close(program, 0);

    EXPECT_TRUE(this->eventually([&] { return this->isMain(program, 1); }));
    EXPECT_EQ(this->windows(program).size(), 1U);
}

TYPED_TEST(AccessibilityContract, KnowsTheMainWindowOfAnAppBehindOthers) {
    const Program behind = this->runPlaced(1);
    const Program before = this->run(1);

    EXPECT_TRUE(this->isMain(behind, 0));
    EXPECT_EQ(this->windows(behind).size(), 1U);
    EXPECT_EQ(this->windows(before).size(), 1U);
}

TYPED_TEST(AccessibilityContract, NeverTakesADialogForTheMainWindow) {
    const Program program = this->run(2, Kind::dialogs);

    EXPECT_TRUE(fails(this->port.mainWindow(*this->app(program))));
    EXPECT_EQ(this->windows(program).size(), 2U);
}

TYPED_TEST(AccessibilityContract, KnowsNoWindowsOfAnAppThatDoesNotRun) {
    this->run(1);
    const auto absent = this->port.application(4711, "absent");
    ASSERT_NE(absent, nullptr);
    this->port.setMessagingTimeout(*absent, 0.5F);

    EXPECT_TRUE(fails(this->port.mainWindow(*absent)));
    const auto windows = this->port.windows(*absent);
    ASSERT_TRUE(windows) << windows.error();
    EXPECT_TRUE(windows->empty());
}

TYPED_TEST(AccessibilityContract, KnowsNoWindowsOfAProcessThatHasEnded) {
    const Program program = this->run(2);
    const auto app = this->app(program);
    const auto window = this->window(program);
    ASSERT_TRUE(this->port.mainWindow(*app));

    this->end(program);

    EXPECT_TRUE(this->eventually([&] {
        const auto windows = this->port.windows(*app);
        return windows && windows->empty();
    }));
    EXPECT_TRUE(fails(this->port.mainWindow(*app)));
    EXPECT_TRUE(this->failsAtAll(*window));
}

TYPED_TEST(AccessibilityContract, GivesAnAppOfUnknownProcessAllOfItsWindows) {
    const Program program = this->run(2, Kind::ofUnknownProcess);

    EXPECT_EQ(this->windows(program).size(), 2U);
    EXPECT_EQ(this->windows({program.bundleID, 4711}).size(), 2U) << "of a wrong one as well";
    EXPECT_TRUE(this->port.mainWindow(*this->app(program)));
}

TYPED_TEST(AccessibilityContract, PutsAWindowThereAndReadsItsPositionBack) {
    const Program program = this->run(1);
    const auto window = this->window(program);
    const Size size = this->outerFrame(program, 0).size();

    // The second is on the display to the left, above the primary's upper edge.
    for (const Point corner : {Point{300, 200}, Point{-900, -100}}) {
        ASSERT_TRUE(this->port.setPosition(*window, corner));
        EXPECT_TRUE(this->comesTo(program, {corner.x, corner.y, size.width, size.height}));
        EXPECT_TRUE(this->isAt(*window, corner));
        EXPECT_EQ(this->port.size(*window).value_or(Size{}), size);
    }
}

TYPED_TEST(AccessibilityContract, ResizesAWindowInItsPlaceAndReadsItsSizeBack) {
    const Program program = this->runPlaced(1);
    const auto window = this->window(program);
    const Point corner = this->corner(0);

    for (const Size size : {Size{500, 400}, Size{350, 260}}) {
        ASSERT_TRUE(this->port.setSize(*window, size));
        EXPECT_TRUE(this->comesTo(program, {corner.x, corner.y, size.width, size.height}));
        EXPECT_EQ(this->port.size(*window).value_or(Size{}), size);
        EXPECT_TRUE(this->isAt(*window, corner));
    }
}

TYPED_TEST(AccessibilityContract, KeepsWhatWasSetBeforeItIsDone) {
    const Program program = this->run(1);
    const auto window = this->window(program);
    const Rect wanted{200, 120, 640, 420};

    ASSERT_TRUE(this->port.setPosition(*window, {wanted.x, wanted.y}));
    ASSERT_TRUE(this->port.setSize(*window, wanted.size()));
    ASSERT_TRUE(this->port.setPosition(*window, {wanted.x, wanted.y}));

    EXPECT_TRUE(this->comesTo(program, wanted));
    EXPECT_TRUE(this->isAt(*window, {wanted.x, wanted.y}));
    EXPECT_EQ(this->port.size(*window).value_or(Size{}), wanted.size());
}

TYPED_TEST(AccessibilityContract, MakesAWindowNoSmallerThanItCanBe) {
    const Program program = this->run(1);
    const auto window = this->window(program);
    this->setMinimumSize(program, 0, {420, 310});

    ASSERT_TRUE(this->port.setPosition(*window, {100, 150}));
    ASSERT_TRUE(this->port.setSize(*window, {200, 330}));

    EXPECT_TRUE(this->comesTo(program, {100, 150, 420, 330}));
    EXPECT_EQ(this->port.size(*window).value_or(Size{}), (Size{420, 330}));
}

TYPED_TEST(AccessibilityContract, KnowsAWindowByAnyElementOfIt) {
    const Program program = this->run(1);
    const auto main = this->port.mainWindow(*this->app(program));
    ASSERT_TRUE(main) << main.error();

    ASSERT_TRUE(this->port.setPosition(*this->window(program), {240, 160}));

    EXPECT_TRUE(this->eventually([&] { return this->isAt(**main, {240, 160}); }));
}

TYPED_TEST(AccessibilityContract, FailsWithAWindowThatIsGoneAndLeavesTheOthersAlone) {
    const Program program = this->runPlaced(2);
    const auto gone = this->window(program, 0);
    const auto other = this->window(program, 1);
    this->close(program, 0);

    this->port.setMessagingTimeout(*gone, 0.5F);

    EXPECT_TRUE(this->failsAtAll(*gone));
    EXPECT_TRUE(this->isAt(*other, this->corner(1)));
}

TYPED_TEST(AccessibilityContract, FailsWhenNobodyAnswersWithinTheTimeOut) {
    using Clock = std::chrono::steady_clock;
    const Program program = this->runPlaced(1);
    const auto window = this->window(program);
    // Far below the default timeout.
    this->port.setMessagingTimeout(*window, 0.01F);

    this->stopAnswering();
    const auto start = Clock::now();
    const auto position = this->port.position(*window);
    const auto elapsed = Clock::now() - start;
    const auto isMoved = this->port.setPosition(*window, {300, 300});
    this->answerAgain();

    EXPECT_TRUE(fails(position));
    EXPECT_TRUE(fails(isMoved));
    EXPECT_LT(elapsed, std::chrono::milliseconds{400});
    EXPECT_TRUE(this->eventually([&] { return this->isAt(*window, this->corner(0)); }));
}

}
}
