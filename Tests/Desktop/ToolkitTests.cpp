/// Windows of real toolkits: GTK, Qt, and xterm for the Athena widgets. Each has its own way of
/// setting titles and demanding attention.
#include "SignalTest.hpp"
#include "VirtualDesktop/Processes/ProcessFigures.hpp"

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>

namespace vireline::desktop {
namespace {

enum class Toolkit : std::uint8_t { gtk, qt, athena };

void PrintTo(Toolkit toolkit, std::ostream* out) {
    constexpr std::array names{"Gtk", "Qt", "Athena"};
    *out << names.at(static_cast<std::size_t>(toolkit));
}

class ToolkitWindows : public SignalTest, public testing::WithParamInterface<Toolkit> {
protected:
    void run() {
        make({.monitors = twoMonitors()});
        start();
    }
    /// Runs the program on the desktop that was made.
    void start() {
        auto& desktop = this->desktop();
        installAlpha();
        desktop.home().install(beta);
        desktop.home().pin(std::vector{alpha, beta});
        desktop.runVireline();
        ASSERT_TRUE(docksSettle(tiles(2)));
    }

    /// Starts Alpha with these windows and waits for them.
    void open(const std::vector<std::string>& titles) {
        // An xterm has a single window.
        const std::size_t perProcess = GetParam() == Toolkit::athena ? 1 : titles.size();
        for (std::size_t i = 0; i < titles.size(); i += perProcess) {
            const auto first = titles.begin() + static_cast<std::ptrdiff_t>(i);
            auto command = commandFor({first, first + static_cast<std::ptrdiff_t>(perProcess)});
            const std::string program = command.front();
            command.erase(command.begin());
            processes.push_back(&desktop().run(program, std::move(command)));
        }
        for (const auto& title : titles)
            ASSERT_TRUE(eventually([&] { return isVisible(title); })) << title;
        // Each becomes active in turn.
        ASSERT_TRUE(eventually([&] {
            const auto& client = desktop().client();
            const auto windows = client.managedWindows();
            return !windows.empty() && client.activeWindow() == windows.back();
        }));
        ASSERT_TRUE(dotShows(layout("right", tiles(2)).dot(0), true));
    }

    /// XCB_NONE if no window has this title.
    [[nodiscard]] xcb_window_t windowTitled(const std::string& title) {
        for (const auto window : desktop().client().managedWindows()) {
            // Openbox publishes all titles in this property, however they were set.
            if (desktop().client().text(window, "_NET_WM_VISIBLE_NAME") == title)
                return window;
        }
        return XCB_NONE;
    }
    [[nodiscard]] bool isVisible(const std::string& title) {
        const auto window = windowTitled(title);
        return window != XCB_NONE && desktop().client().isViewable(window);
    }
    [[nodiscard]] bool isActive(const std::string& title) {
        const auto window = windowTitled(title);
        return window != XCB_NONE && desktop().client().activeWindow() == window;
    }

    void activate(const std::string& title) {
        constexpr std::uint32_t fromPager = 2;
        desktop().client().sendToRoot(windowTitled(title), "_NET_ACTIVE_WINDOW",
                                      {fromPager, XCB_CURRENT_TIME});
        ASSERT_TRUE(eventually([&] { return isActive(title); }));
    }
    void iconify(const std::string& title) {
        constexpr std::uint32_t iconicState = 3;
        desktop().client().sendToRoot(windowTitled(title), "WM_CHANGE_STATE", {iconicState});
        ASSERT_TRUE(eventually([&] { return !isVisible(title); }));
    }

    /// Makes the first window ask for attention as programs of this toolkit do.
    void demandAttention() {
        if (GetParam() == Toolkit::athena)
            std::ofstream{output(), std::ios::app} << '\a' << std::flush;
        else
            processes.front()->signal(SIGUSR1);
    }

    void signalAll(int number) const {
        for (const auto* const process : processes)
            process->signal(number);
    }

    [[nodiscard]] PixelPoint alphaTile() { return layout("right", tiles(2)).icon(0); }

    const App alpha = someApps(2)[0];
    const App beta = someApps(2)[1];
    std::vector<ChildProcess*> processes;

private:
    /// What xterms show: every byte that is appended to this file.
    [[nodiscard]] std::filesystem::path output() { return desktop().home().scratch() / "output"; }

    [[nodiscard]] std::vector<std::string> commandFor(const std::vector<std::string>& titles) {
        if (GetParam() == Toolkit::athena)
            return {"xterm",
                    "-class",
                    alpha.id,
                    "-name",
                    alpha.id,
                    "-T",
                    titles.front(),
                    "-xrm",
                    "*bellIsUrgent: true",
                    "-e",
                    "tail",
                    "-f",
                    output().string()};
        std::vector<std::string> command{GetParam() == Toolkit::gtk ? GTK_APP : QT_APP, alpha.id};
        command.insert(command.end(), titles.begin(), titles.end());
        return command;
    }

    void installAlpha() {
        std::ofstream{output()};
        const auto icon = desktop().home().scratch() / "alpha.png";
        Picture{64, 64, alpha.colour}.writePNG(icon);
        const auto exec = [&](const std::string& title) {
            std::string line;
            for (const auto& argument : commandFor({title}))
                line += '"' + argument + "\" ";
            return line;
        };
        desktop().home().installEntry(
            alpha.id, "[Desktop Entry]\nType=Application\nName=" + alpha.name +
                          "\nIcon=" + icon.string() + "\nStartupWMClass=" + alpha.id +
                          "\nExec=" + exec("Started") +
                          "\nActions=new-window;\n[Desktop Action new-window]\nName=New Window" +
                          "\nExec=" + exec("Another") + "\n");
    }
};

INSTANTIATE_TEST_SUITE_P(, ToolkitWindows,
                         testing::Values(Toolkit::gtk, Toolkit::qt, Toolkit::athena),
                         testing::PrintToStringParamName{});

TEST_P(ToolkitWindows, AreReadOutByTheirTitlesAndTheChosenOneComesForward) {
    make({.monitors = twoMonitors(), .accessibility = true});
    auto events = desktop().accessibleEvents();
    start();
    const std::string shown = "First window";
    const std::string hidden = "Sécond & last";
    open({shown, hidden});
    activate(shown);
    iconify(hidden);

    ASSERT_NE(openMenu(alphaTile()), PixelRect{});
    ASSERT_TRUE(eventually([&] { return desktop().keyboard().isHeld(); }));
    const auto isReadOut = [&](const std::string& title) {
        const auto item = events.lastSource("StateChanged focused");
        return item && desktop().controls().name(*item) == title;
    };
    for (const auto& title : {shown, hidden}) {
        desktop().keyboard().type(Keyboard::down);
        EXPECT_TRUE(eventually([&] { return isReadOut(title); })) << title;
    }
    desktop().keyboard().type(Keyboard::enter);

    EXPECT_TRUE(logs("menu window " + alpha.id));
    EXPECT_TRUE(eventually([&] { return isVisible(hidden) && isActive(hidden); }));
}

TEST_P(ToolkitWindows, AreListedAtOnceWhileTheAppHangs) {
    run();
    open({"One", "Two"});
    signalAll(SIGSTOP);
    const UndisturbedTime time{{desktop().vireline().pid(), desktop().server(), getpid()}};
    const auto menu = openMenu(alphaTile());
    const auto took = time.elapsed();
    signalAll(SIGCONT);
    ASSERT_NE(menu, PixelRect{});
    EXPECT_LT(took, std::chrono::milliseconds{400}) << took.count();
    // Two windows, a separator, an action, a separator, "Show", "Show in" and "Quit".
    const auto last = isActive("One") ? "Two" : "One";
    choose(menu, 1, 8);
    EXPECT_TRUE(logs("menu window " + alpha.id));
    EXPECT_TRUE(eventually([&] { return isActive(last); }));
}

// Behaviour: attention-1
TEST_P(ToolkitWindows, ThatWantAttentionMakeTheTileBobAndMarkIt) {
    run();
    open({"One"});
    desktop().launch(beta);
    ASSERT_TRUE(eventually([&] { return desktop().isActive(beta); }));
    const auto dock = layout("right", tiles(2));
    const PixelPoint icon = dock.icon(0);
    // Nothing of the icon is there while it rests.
    const PixelPoint above{icon.x, icon.y - static_cast<int>(dock.iconSize() / 2) - 3};
    ASSERT_FALSE(isSame(desktop().pixel(above), alpha.colour));
    demandAttention();
    EXPECT_TRUE(turns(above, alpha.colour)) << "it bobs";
    EXPECT_TRUE(shows(mark));
    desktop().pointer().click(icon);
    EXPECT_TRUE(eventually([&] { return isActive("One"); }));
    EXPECT_TRUE(showsNo(mark));
}

TEST_P(ToolkitWindows, OpenWithTheAppsOwnActionOnAMiddleClick) {
    run();
    open({"One"});
    desktop().pointer().click(alphaTile(), Pointer::Button::middle);
    EXPECT_TRUE(logs("middle click new window " + alpha.id));
    EXPECT_TRUE(eventually([&] { return isVisible("Another"); }));
    EXPECT_TRUE(isVisible("One"));
    EXPECT_EQ(desktop().docks().shown().size(), 1U);
    EXPECT_TRUE(docksSettle(tiles(2))) << "both windows belong to the pinned tile";
}

class GtkAnnouncements : public SignalTest {};

TEST_F(GtkAnnouncements, GoWithTheProcessThatMadeThem) {
    const auto apps = someApps(1);
    runWithTwoDisplays(apps, {.sessionBus = true});
    ASSERT_TRUE(docksSettle(tiles(1)));
    const BusClient bus{desktop().environment().at("DBUS_SESSION_BUS_ADDRESS")};
    ASSERT_TRUE(eventually([&] { return bus.hasOwner("com.canonical.Unity"); }));
    const auto& app = desktop().run(GTK_APP, {"--announce",
                                              "{'count': <int64 7>, 'count-visible': <true>, "
                                              "'progress': <0.9>, 'progress-visible': <true>}",
                                              apps[0].id, "Downloads"});
    EXPECT_TRUE(shows(badge));
    EXPECT_TRUE(shows(progressFill));
    app.signal(SIGKILL);
    EXPECT_TRUE(showsNo(badge));
    EXPECT_TRUE(showsNo(progressFill));
    EXPECT_TRUE(dotShows(layout("right", tiles(1)).dot(0), false));
}

}
}
