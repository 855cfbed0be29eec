/// What apps signal on their tiles: badges, progress, and that they want attention.
#include "SignalTest.hpp"
#include "VirtualDesktop/Buses/Announcer.hpp"
#include "VirtualDesktop/Processes/ProcessFigures.hpp"
#include "VirtualDesktop/Session/WidgetTheme.hpp"

#include <chrono>
#include <memory>

namespace vireline::desktop {
namespace {

class AppSignals : public SignalTest {
protected:
    void run(const std::string& preferences = {}, bool isAccessible = false) {
        auto& desktop =
            make({.monitors = twoMonitors(), .sessionBus = true, .accessibility = isAccessible});
        for (const auto& app : apps)
            desktop.home().install(app);
        desktop.home().pin(apps);
        desktop.home().writePreferences(R"({"onboardingCompleted": true)" + preferences + "}");
        // A sanitized program would keep what it has freed.
        desktop.environment()["ASAN_OPTIONS"] +=
            ":quarantine_size_mb=0:thread_local_quarantine_size_kb=0";
        if (!animates)
            announceNoAnimations(desktop.client());
        desktop.runVireline();
        const BusClient bus{address()};
        ASSERT_TRUE(eventually([&] { return bus.hasOwner("com.canonical.Unity"); }));
    }
    void runExpanded() {
        run();
        ASSERT_TRUE(docksSettle(tiles(2)));
    }

    [[nodiscard]] std::string address() {
        return desktop().environment().at("DBUS_SESSION_BUS_ADDRESS");
    }

    [[nodiscard]] xcb_window_t launch(const App& app) {
        desktop().launch(app);
        EXPECT_TRUE(eventually([&] { return desktop().isActive(app); }));
        return desktop().windowsOf(app).at(0);
    }

    /// Whether the desktop wants animations.
    bool animates = true;
    /// Longer than the interval of any timer that the program might have while it is idle.
    static constexpr std::chrono::milliseconds rest{400};
    const std::vector<App> apps = someApps(2);
    const App& alpha = apps[0];
    const App& beta = apps[1];
};

TEST_F(AppSignals, ABadgeShowsUntilTheAppWithdrawsItOrLeavesTheBus) {
    runExpanded();
    auto announcer = std::make_unique<Announcer>(address());
    announcer->announce(alpha.id, "{'count': <int64 7>, 'count-visible': <true>}");
    EXPECT_TRUE(shows(badge));
    announcer->announce(alpha.id, "{'count-visible': <false>}");
    EXPECT_TRUE(showsNo(badge));
    announcer->announce(alpha.id, "{'count-visible': <true>}");
    EXPECT_TRUE(shows(badge));
    announcer.reset();
    EXPECT_TRUE(showsNo(badge));
}

TEST_F(AppSignals, ProgressShows) {
    runExpanded();
    const Announcer announcer{address()};
    announcer.announce(beta.id, "{'progress': <0.9>, 'progress-visible': <true>}");
    EXPECT_TRUE(shows(progressFill));
    const int most = pixelsOf(progressFill);
    announcer.announce(beta.id, "{'progress': <0.3>}");
    EXPECT_TRUE(eventually([&] { return pixelsOf(progressFill) < most / 2; }));
}

TEST_F(AppSignals, ShowNothingForInvalidAnnouncementsAndUnknownApps) {
    runExpanded();
    const Announcer announcer{address()};
    announcer.announce("no.such.app", "{'count': <int64 7>, 'count-visible': <true>}");
    announcer.announce(alpha.id, "{'count': <int64 -7>, 'count-visible': <true>}");
    announcer.announce(alpha.id, "{'count': <'many'>, 'progress': <'much'>}");
    announcer.announce(beta.id, "{'progress': <1.0>, 'progress-visible': <true>}");
    EXPECT_TRUE(shows(progressFill));
    EXPECT_EQ(pixelsOf(badge), 0);
    EXPECT_TRUE(desktop().vireline().isRunning());
}

TEST_F(AppSignals, AFloodCostsNeitherMemoryNorTheDocksResponse) {
    runExpanded();
    const Announcer announcer{address()};
    announcer.announce(alpha.id, "{'progress': <0.5>, 'progress-visible': <true>}");
    ASSERT_TRUE(shows(progressFill));
    const auto pid = desktop().vireline().pid();
    const auto flood = [&] {
        constexpr int rounds = 30'000;
        for (int i = 0; i < rounds; ++i) {
            announcer.announceSoon(alpha.id,
                                   "{'progress': <" + std::to_string(i / double{rounds}) + ">}");
            if (i % 1000 == 0)
                announcer.announce(alpha.id, "{'urgent': <false>}");
        }
    };
    // What the first flood takes, such as for buffers, is kept.
    flood();
    announcer.announce(alpha.id, "{'count': <int64 1>, 'count-visible': <true>}");
    ASSERT_TRUE(shows(badge)) << "the flood is over";
    // Not "Pss:", which grows when another process that shares libraries ends.
    const long before = kilobytes(pid, "Anonymous:");
    announcer.announce(alpha.id, "{'count-visible': <false>}");
    ASSERT_TRUE(showsNo(badge));
    flood();
    announcer.announce(alpha.id, "{'progress-visible': <false>, 'count': <int64 1>, "
                                 "'count-visible': <true>}");
    EXPECT_TRUE(shows(badge));
    EXPECT_TRUE(showsNo(progressFill));
    EXPECT_LT(kilobytes(pid, "Anonymous:") - before, 4096);
    desktop().pointer().click(layout("right", tiles(2)).icon(1));
    EXPECT_TRUE(logs("click launch " + beta.id));
}

TEST_F(AppSignals, AnAppThatDemandsAttentionIsMarkedUntilItIsActive) {
    runExpanded();
    const auto window = launch(alpha);
    static_cast<void>(launch(beta));
    desktop().demandAttention(window);
    EXPECT_TRUE(shows(mark));
    desktop().pointer().click(layout("right", tiles(2)).icon(0));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(alpha); }));
    EXPECT_TRUE(showsNo(mark));
}

// Behaviour: attention-3
TEST_F(AppSignals, WithoutAnimationsTheMarkIsAlone) {
    animates = false;
    runExpanded();
    const auto dock = layout("right", tiles(2));
    const PixelPoint icon = dock.icon(0);
    ASSERT_TRUE(turns(icon, alpha.colour));
    // Nothing of the icon is there while it rests.
    const PixelPoint above{icon.x, icon.y - static_cast<int>(dock.iconSize() / 2) - 3};
    const Announcer announcer{address()};
    announcer.announce(alpha.id, "{'urgent': <true>}");
    EXPECT_TRUE(shows(mark));
    // A tile that bobs goes up and down within this time.
    constexpr std::chrono::milliseconds once{600};
    EXPECT_FALSE(eventually([&] { return isSame(desktop().pixel(above), alpha.colour); }, once));
}

TEST_F(AppSignals, AnAutoHiddenDockShowsTheMarkOnItsLineAndStaysHidden) {
    run(R"(, "autoHide": true)");
    const Announcer announcer{address()};
    const auto line = [&] { return pixelsOf(alpha.colour) == 0; };
    ASSERT_TRUE(eventually(line));
    announcer.announce(alpha.id, "{'urgent': <true>}");
    EXPECT_TRUE(shows(mark));
    EXPECT_TRUE(line()) << "the tiles are still hidden";
    EXPECT_TRUE(comesToRest(desktop().vireline().pid(), rest));
    EXPECT_TRUE(shows(mark));
    EXPECT_TRUE(line());
}

// Behaviour: tile-badges-5
TEST_F(AppSignals, CostNothingOnceTheTileHasBobbed) {
    runExpanded();
    const Announcer announcer{address()};
    announcer.announce(alpha.id, "{'urgent': <true>, 'count': <int64 7>, 'count-visible': <true>, "
                                 "'progress': <0.5>, 'progress-visible': <true>}");
    const auto showsEverything = [&] { return shows(mark) && shows(badge) && shows(progressFill); };
    ASSERT_TRUE(showsEverything());
    EXPECT_TRUE(comesToRest(desktop().vireline().pid(), rest));
    EXPECT_TRUE(showsEverything());
}

TEST_F(AppSignals, AreToldToScreenReaders) {
    run({}, true);
    ASSERT_TRUE(docksSettle(tiles(2)));
    const Announcer announcer{address()};
    const auto description = [&](const std::string& name) {
        const auto tree = desktop().controls();
        const auto tile = tree.find(AccessibleRole::pushButton, name);
        return tile ? tree.description(*tile) : std::string{};
    };
    ASSERT_TRUE(eventually([&] { return description("Alpha") == "not running"; }));
    announcer.announce(alpha.id, "{'count': <int64 3>, 'count-visible': <true>, 'progress': "
                                 "<0.5>, 'progress-visible': <true>}");
    EXPECT_TRUE(eventually([&] {
        return description("Alpha") == "not running, badge 3, 50 percent";
    })) << description("Alpha");
}

}
}
