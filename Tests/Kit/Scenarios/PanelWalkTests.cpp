/// Thousands of random events on all docks, checked against a small independent model of when a
/// dock is out and when it hides.
#include "Displays/DisplayCoordinator.hpp"
#include "Support/DockFixture.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/Random.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace vireline {
namespace {

using Kind = PointerEvent::Kind;

/// The expected state of one dock.
struct ModelDock {
    bool hides = false;
    bool isIn = false;
    bool hasPointer = false;
    bool hasMenu = false;
    bool hasFiles = false;
    /// The button is pressed on a pinned tile, which may have been removed since.
    bool isPressed = false;
    bool isDragging = false;
    std::optional<double> hidesAt = {};

    [[nodiscard]] bool isHeld() const { return hasPointer || hasMenu || hasFiles || isDragging; }

    void expand() {
        if (!hides)
            return;
        hidesAt.reset();
        isIn = false;
    }
    void loosen(double now) {
        if (hides && !isIn && !isHeld())
            hidesAt = now + 0.6;
    }
    void letGo(double now) {
        isPressed = false;
        if (std::exchange(isDragging, false))
            loosen(now);
    }
    void letTimePass(double now) {
        if (!hidesAt || *hidesAt > now)
            return;
        hidesAt.reset();
        isIn = !isHeld();
    }
    void setHides(bool on, double now) {
        const bool hidBefore = std::exchange(hides, on);
        if (!on) {
            isIn = false;
            hidesAt.reset();
        } else if (!hidBefore) {
            loosen(now);
        }
    }
};

class PanelWalk : public testing::TestWithParam<unsigned> {
protected:
    PanelWalk() {
        dock.platform.motionSettings.reduces = true;
        config.autoHide = true;
        coordinator.dockConfig = [this] { return config; };
        setTiles(3, 1);
        attach(3);
        coordinator.start();
        follow();
    }

    [[nodiscard]] test::FakePanelWindows& windows() { return dock.platform.panelWindows; }
    [[nodiscard]] double now() const { return dock.platform.runLoop.now(); }

    /// The first display has no dock.
    void attach(int displays) {
        auto& list = dock.platform.screens.list;
        list = {test::screenWithDock(1, {0, 0, 1920, 1080})};
        for (int i = 1; i < displays; ++i) {
            const double lift = random.boolean() ? 100 : 0;
            list.push_back(
                test::screenAt(static_cast<std::uint32_t>(i + 1), {-1280.0 * i, lift, 1280, 1024}));
        }
    }

    void setTiles(int pinned, int unpinned) {
        pinnedCount = pinned;
        appCount = pinned + unpinned;
        dock.setTiles(pinned, unpinned);
    }

    /// New docks start hidden; docks without a display are removed.
    void follow() {
        const auto before = std::exchange(model, {});
        for (const PlatformScreen& screen : dock.platform.screens.list) {
            const auto number = screen.number.value_or(0);
            if (number == 1)
                continue;
            const auto known = before.find(number);
            model[number] = known == before.end()
                                ? ModelDock{.hides = config.autoHide, .isIn = config.autoHide}
                                : known->second;
        }
    }

    void letTimePass(double seconds) {
        dock.platform.runLoop.advance(seconds);
        for (auto& [display, state] : model)
            state.letTimePass(now());
    }

    void pointerStep(PanelWindowListener& listener, ModelDock& state);
    void buttonStep(const test::FakePanel& panel, ModelDock& state);
    void filesStep(PanelWindowListener& listener, ModelDock& state);
    void menuStep(test::FakePanel& panel, ModelDock& state);
    void listStep();
    void screensStep();
    void settingsStep();
    void step();
    void calmDown();
    [[nodiscard]] testing::AssertionResult isAsModelled();

    test::LoggedLines log;
    test::DockFixture dock;
    test::Random random{GetParam()};
    int pinnedCount = 0;
    int appCount = 0;
    DisplayCoordinator::DockConfig config;
    DisplayCoordinator coordinator{dock.context(), dock.platform.screens,
                                   dock.platform.panelWindows};
    std::map<std::uint32_t, ModelDock> model;
};

/// The first tile's position at rest; nullopt while the dock shows no tiles.
std::optional<Point> firstTile(const test::FakePanel& panel) {
    std::optional<Point> first;
    for (const SceneNode& node : panel.scene->nodes) {
        const Point center = node.frame.center();
        if (node.id.part == NodeID::Part::icon &&
            (!first || center.x + center.y < first->x + first->y))
            first = center;
    }
    return first;
}

void PanelWalk::pointerStep(PanelWindowListener& listener, ModelDock& state) {
    switch (random.integer(0, 4)) {
    case 0:
        listener.mouseEntered();
        state.hasPointer = true;
        state.expand();
        break;
    case 1:
    case 2:
        listener.mouseExited();
        state.hasPointer = false;
        state.loosen(now());
        break;
    case 3:
        listener.pointerEvent({Kind::exited, {}});
        break;
    default:
        if (!state.isPressed)
            listener.pointerEvent({Kind::moved, {random.real(0, 300), random.real(0, 84)}});
        break;
    }
}

void PanelWalk::buttonStep(const test::FakePanel& panel, ModelDock& state) {
    const auto tile = firstTile(panel);
    const int choice = random.integer(0, 5);
    if (choice < 2 && tile) {
        state.letGo(now());
        state.isPressed = pinnedCount > 0;
        panel.listener().pointerEvent({Kind::pressed, *tile});
    } else if (choice < 4 && tile) {
        state.isDragging = state.isPressed;
        panel.listener().pointerEvent({Kind::moved, {tile->x + 7, tile->y + 7}});
    } else if (choice >= 4) {
        state.letGo(now());
        panel.listener().pointerEvent({choice == 4 ? Kind::released : Kind::cancelled, {-50, -50}});
    }
}

void PanelWalk::filesStep(PanelWindowListener& listener, ModelDock& state) {
    const Point place{random.real(0, 300), random.real(0, 84)};
    switch (random.integer(0, 4)) {
    case 0:
        listener.dragEntered({"https://example.org/a", "file:///a"});
        state.hasFiles = true;
        state.expand();
        break;
    case 1:
        if (!state.hasFiles)
            listener.dragEntered({"https://example.org/a"});
        break;
    case 2:
        static_cast<void>(listener.dragMoved(place));
        break;
    default:
        if (random.boolean())
            listener.dragExited();
        else
            static_cast<void>(listener.dropped(place));
        state.hasFiles = false;
        state.loosen(now());
        break;
    }
}

void PanelWalk::menuStep(test::FakePanel& panel, ModelDock& state) {
    if (std::exchange(state.hasMenu, false)) {
        panel.dismissMenu();
        state.loosen(now());
    } else if (const auto tile = firstTile(panel); tile && random.integer(0, 3) == 0) {
        panel.listener().pointerEvent({Kind::secondaryPressed, *tile});
        state.hasMenu = appCount > 0;
    }
}

void PanelWalk::listStep() {
    setTiles(std::max(0, random.integer(-3, 4)), random.integer(0, 2));
    coordinator.reconcile();
    follow();
    // The first pinned tile is always the same app, if there is one.
    if (pinnedCount > 0)
        return;
    for (auto& [display, state] : model) {
        windows().panel(display).nextFrame();
        state.letGo(now());
    }
}

void PanelWalk::screensStep() {
    attach(random.integer(2, 4));
    dock.platform.screens.announceChange();
    letTimePass(0.5);
    follow();
}

void PanelWalk::settingsStep() {
    if (random.integer(0, 3) == 0) {
        // Docks on another edge are new docks.
        config.position =
            config.position == DockPosition::left ? DockPosition::bottom : DockPosition::left;
        model.clear();
    } else {
        config.autoHide = random.integer(0, 3) > 0;
        for (auto& [display, state] : model)
            state.setHides(config.autoHide, now());
    }
    coordinator.reconcile();
    follow();
}

void PanelWalk::step() {
    const auto index = random.integer(0, static_cast<int>(model.size()) - 1);
    const auto chosen = std::next(model.begin(), index);
    test::FakePanel& panel = windows().panel(chosen->first);
    ModelDock& state = chosen->second;
    panel.nextFrame();
    switch (random.integer(0, 20)) {
    case 0:
    case 1:
        return listStep();
    case 2:
        return screensStep();
    case 3:
        return settingsStep();
    case 4:
    case 5:
    case 6:
    case 7:
        return letTimePass(random.real(0, 0.4));
    case 8:
    case 9:
        return menuStep(panel, state);
    case 10:
    case 11:
    case 12:
        return filesStep(panel.listener(), state);
    case 13:
    case 14:
    case 15:
        return buttonStep(panel, state);
    default:
        return pointerStep(panel.listener(), state);
    }
}

/// Ends everything that could keep a dock out.
void PanelWalk::calmDown() {
    for (auto& [display, state] : model) {
        test::FakePanel& panel = windows().panel(display);
        if (panel.isMenuOpen())
            panel.dismissMenu();
        panel.listener().pointerEvent({Kind::cancelled, {}});
        panel.listener().dragExited();
        panel.listener().mouseExited();
    }
    dock.platform.runLoop.advance(1);
}

/// Whether the docks are in their expected state, allowing one pending change each.
testing::AssertionResult PanelWalk::isAsModelled() {
    constexpr double sliver = 4;
    for (const auto& [display, state] : model) {
        test::FakePanel& panel = windows().panel(display);
        const bool isIn = std::min(panel.frame.width, panel.frame.height) == sliver;
        const auto changes =
            std::ranges::count_if(panel.frameChanges, &test::FakePanel::FrameChange::animate);
        panel.frameChanges.clear();
        if (isIn != state.isIn || changes > 1) {
            return testing::AssertionFailure()
                   << "dock " << display << (isIn ? " is in" : " is out") << " after " << changes
                   << " changes and should be " << (state.isIn ? "in" : "out");
        }
    }
    return testing::AssertionSuccess();
}

TEST_P(PanelWalk, EveryDockIsInOrOutAsItShouldBe) {
    constexpr int steps = 5000;
    for (int i = 0; i < steps; ++i) {
        step();
        ASSERT_TRUE(isAsModelled()) << "after step " << i;
    }
}

TEST_P(PanelWalk, NoDockIsEverStuck) {
    constexpr int steps = 500;
    constexpr double sliver = 4;
    for (int i = 0; i < steps; ++i)
        step();
    config.autoHide = true;
    coordinator.reconcile();
    calmDown();
    for (const std::uint32_t display : windows().displays()) {
        const Rect& frame = windows().panel(display).frame;
        EXPECT_EQ(std::min(frame.width, frame.height), sliver) << display;
        windows().panel(display).listener().mouseEntered();
        EXPECT_GT(std::min(frame.width, frame.height), sliver) << display;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PanelWalk, testing::Range(1U, 9U));

}
}
