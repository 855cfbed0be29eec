#include "WindowFeatureTest.hpp"

#include <algorithm>
#include <sstream>

namespace vireline::desktop {

VirtualDesktop& WindowFeatureTest::runWith(const std::string& members, const std::string& host,
                                           Options options) {
    options.monitors = threeMonitors();
    options.manager = manager();
    auto& desktop = make(options);
    if (!host.empty())
        desktop.reserve({host, Edge::bottom, 40});
    for (const auto& app : apps)
        desktop.home().install(app);
    desktop.home().pin(apps);
    desktop.home().writePreferences(R"({"onboardingCompleted": true, )" + members + "}");
    desktop.runVireline();
    if (!autoHide) {
        EXPECT_TRUE(docksSettle(request));
    }
    return desktop;
}

PixelPoint WindowFeatureTest::tile(const std::string& monitor, int index) {
    return layout(monitor, request).icon(index);
}

void WindowFeatureTest::clickTile(const std::string& monitor, int index) {
    reveal(monitor);
    const int before = clicksLogged();
    desktop().pointer().click(tile(monitor, index));
    EXPECT_TRUE(eventually([&] { return clicksLogged() > before; }));
}

void WindowFeatureTest::doubleClickTile(const std::string& monitor, int index) {
    clickTile(monitor, index);
    const int before = clicksLogged();
    desktop().pointer().click(tile(monitor, index));
    EXPECT_TRUE(eventually([&] { return clicksLogged() > before; }));
}

int WindowFeatureTest::clicksLogged() {
    return desktop().log().count("click ") + desktop().log().count("double-click ");
}

void WindowFeatureTest::reveal(const std::string& monitor) {
    if (!autoHide)
        return;
    const auto plan = plannedDock(monitor, request);
    const auto pixels = [&](const Rect& frame) {
        return desktop().displays().pixels(plan.monitor, frame);
    };
    const auto shown = [&] { return desktop().docks().on(plan.spec.displayID).frame; };
    const PixelRect sliver = pixels(plan.spec.collapsedFrame());
    // On a Wayland desktop, a dock is as large as what can be seen of it.
    const bool isWayland = desktop().isWayland();
    EXPECT_TRUE(eventually([&] {
        return isWayland ? shown().width > 0 && sliver.contains(shown()) : shown() == sliver;
    }));
    desktop().pointer().moveTo(sliver.center());
    EXPECT_TRUE(eventually([&] {
        return isWayland || shown() == pixels(plan.overhang.around(plan.spec.hoverFrame()));
    }));
    // The pixels of a magnified tile are blended.
    constexpr int mixed = 100;
    EXPECT_TRUE(eventually(
        [&] { return desktop().pixel(tile(monitor)).distance(apps[0].colour) < mixed; }));
}

xcb_window_t WindowFeatureTest::open(int index, PixelPoint corner,
                                     std::vector<std::string> arguments) {
    arguments.insert(arguments.end(),
                     {"--at", std::to_string(corner.x) + "," + std::to_string(corner.y)});
    const App& app = apps.at(static_cast<std::size_t>(index));
    desktop().launch(app, std::move(arguments));
    EXPECT_TRUE(eventually([&] { return desktop().isActive(app); }));
    // An auto-hiding dock expands only after the program has noticed the window.
    if (!autoHide) {
        EXPECT_TRUE(
            dotShows(layout(desktop().planned(request).front().monitor.name, request).dot(index),
                     /*shows=*/true));
    }
    return windowOf(index);
}

xcb_window_t WindowFeatureTest::windowOf(int index) {
    const App& app = apps.at(static_cast<std::size_t>(index));
    if (!eventually([&] { return !desktop().windowsOf(app).empty(); }))
        throw std::runtime_error{"no window of " + app.name};
    return desktop().windowsOf(app).front();
}

PixelRect WindowFeatureTest::outerFrame(xcb_window_t window) {
    auto outer = desktop().frameOf(window).value_or(PixelRect{});
    if (desktop().isWayland())
        return outer;
    const auto extend = [&](const std::string& property, int sign) {
        const auto sides = desktop().client().items(window, property);
        if (sides.size() < 4)
            return;
        const auto side = [&](std::size_t index) { return sign * static_cast<int>(sides[index]); };
        outer = {outer.x - side(0), outer.y - side(2), outer.width + side(0) + side(1),
                 outer.height + side(2) + side(3)};
    };
    extend("_NET_FRAME_EXTENTS", 1);
    extend("_GTK_FRAME_EXTENTS", -1);
    return outer;
}

testing::AssertionResult WindowFeatureTest::comesTo(xcb_window_t window, const PixelRect& outer) {
    if (eventually([&] { return outerFrame(window) == outer; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "the window is at " << outerFrame(window) << " and not at " << outer;
}

testing::AssertionResult WindowFeatureTest::comesToMiddle(xcb_window_t window,
                                                          const std::string& monitor) {
    const PixelRect display = desktop().monitor(monitor).frame;
    const auto isInMiddle = [&] {
        const PixelRect outer = outerFrame(window);
        return std::abs(2 * outer.x + outer.width - 2 * display.x - display.width) <= 1 &&
               std::abs(2 * outer.y + outer.height - 2 * display.y - display.height) <= 1;
    };
    if (eventually(isInMiddle))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "the window is at " << outerFrame(window) << " and not in the middle of " << display;
}

testing::AssertionResult WindowFeatureTest::comesOnto(xcb_window_t window,
                                                      const std::string& monitor) {
    const PixelRect display = desktop().monitor(monitor).frame;
    if (eventually([&] { return display.contains(outerFrame(window).center()); }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "the window is at " << outerFrame(window) << " and not on " << display;
}

PixelRect WindowFeatureTest::freeArea(const std::string& monitor, const FillContext& context) {
    const auto screens = desktop().displays().snapshots(desktop().client());
    const auto target =
        *std::ranges::find(screens, desktop().displayIDOf(monitor), &ScreenSnapshot::id);
    const auto [position, size] = WindowPlacement::fillFrame(target, screens, context);
    const double top = screens.front().frame.height - position.y;
    return desktop().displays().pixels(desktop().monitor(monitor),
                                       {position.x, top - size.height, size.width, size.height});
}

bool WindowFeatureTest::hasState(xcb_window_t window, const std::string& state) {
    const auto states = desktop().client().atoms(window, "_NET_WM_STATE");
    return std::ranges::find(states, desktop().client().atom("_NET_WM_STATE_" + state)) !=
           states.end();
}

void WindowFeatureTest::setStates(xcb_window_t window, const std::string& first,
                                  const std::string& second) {
    constexpr std::uint32_t add = 1;
    constexpr std::uint32_t fromPager = 2;
    const auto state = [&](const std::string& name) {
        return name.empty() ? 0 : desktop().client().atom("_NET_WM_STATE_" + name);
    };
    desktop().client().sendToRoot(window, "_NET_WM_STATE",
                                  {add, state(first), state(second), fromPager});
    EXPECT_TRUE(eventually([&] { return hasState(window, first); }));
}

std::string nameOf(VirtualDesktop::Manager manager) {
    if (manager == VirtualDesktop::Manager::sway)
        return "Sway";
    return manager == VirtualDesktop::Manager::openbox ? "Openbox" : "Xfwm4";
}

std::string managerName(const testing::TestParamInfo<VirtualDesktop::Manager>& manager) {
    return nameOf(manager.param);
}

}
