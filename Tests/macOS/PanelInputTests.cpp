#include "Translation/PanelInput.hpp"

#include <gtest/gtest.h>

namespace vireline::macos {
namespace {

using Kind = PointerEvent::Kind;

/// Records what is reported.
class Listener final : public PanelWindowListener {
public:
    void mouseEntered() override { ++entered; }
    void mouseExited() override { ++exited; }
    void frameDue() override {}
    void pointerEvent(const PointerEvent& event) override { events.push_back(event); }
    void dragEntered(const std::vector<std::string>& urls) override { dragged = urls; }
    bool dragMoved(Point at) override {
        dragPoints.push_back(at);
        return takesDrops;
    }
    void dragExited() override { ++dragsLeft; }
    bool dropped(Point at) override {
        drops.push_back(at);
        return takesDrops;
    }

    int entered = 0;
    int exited = 0;
    std::vector<PointerEvent> events;
    std::vector<std::string> dragged;
    std::vector<Point> dragPoints;
    std::vector<Point> drops;
    int dragsLeft = 0;
    bool takesDrops = true;
};

/// The input of a window of 300 by 88 points whose view is 4 points above its bottom.
class PanelInputTest : public testing::Test {
protected:
    PanelInputTest() { input.setHosted({{0, 4, 300, 84}}); }

    Listener listener;
    PanelInput input{listener};
};

TEST_F(PanelInputTest, ReportsThePointerInTheViewsCoordinates) {
    input.pointerEntered({10, 80}, false);
    input.pointerMoved({20, 60});

    EXPECT_EQ(listener.entered, 1);
    EXPECT_EQ(listener.events,
              (std::vector<PointerEvent>{{Kind::moved, {10, 8}}, {Kind::moved, {20, 28}}}));
}

TEST_F(PanelInputTest, TheGapBelowTheViewIsWindowButNotView) {
    input.pointerEntered({10, 20}, false);
    input.pointerMoved({10, 2});

    EXPECT_EQ(listener.exited, 0);
    EXPECT_EQ(listener.events.back().kind, Kind::exited);
}

TEST_F(PanelInputTest, APointerThatComesWithAHeldButtonIsBusyElsewhere) {
    input.pointerEntered({10, 20}, true);
    EXPECT_EQ(listener.entered, 0);

    input.pointerEntered({10, 20}, false);

    EXPECT_EQ(listener.entered, 1);
}

TEST_F(PanelInputTest, AHeldButtonKeepsThePointerHere) {
    input.pointerEntered({10, 20}, false);
    input.pressed({10, 20}, false);

    input.pointerLeft(true);
    EXPECT_EQ(listener.exited, 0);
    input.released({10, 400}, false);

    EXPECT_EQ(listener.exited, 1);
}

TEST_F(PanelInputTest, APressThatAsksForAMenuIsNoPress) {
    input.pointerEntered({10, 20}, false);

    input.pressed({10, 20}, true);
    input.released({10, 20}, true);

    EXPECT_EQ(listener.events[1], (PointerEvent{Kind::secondaryPressed, {10, 68}}));
    EXPECT_EQ(listener.events.size(), 2U);
}

TEST_F(PanelInputTest, AMenuDoesNotMakeThePointerLeave) {
    input.pointerEntered({10, 20}, false);

    input.menuOpened();
    input.pointerLeft(false);
    EXPECT_EQ(listener.exited, 0);
    input.menuClosed({10, 400}, false);

    EXPECT_EQ(listener.exited, 1);
}

TEST_F(PanelInputTest, OnlyTheInputRegionTakesThePointer) {
    EXPECT_TRUE(input.takesPointer({1, 1}));

    input.setInputRegion(Rect{100, 26, 100, 58});

    EXPECT_TRUE(input.takesPointer({150, 30}));
    EXPECT_FALSE(input.takesPointer({150, 80}));
    EXPECT_FALSE(input.takesPointer({50, 30}));
}

/// The same view without the gap, in a window that extends 20 points further to the right and 10
/// further up; the input region extends 5 points into the former.
class OverhangInputTest : public PanelInputTest {
protected:
    OverhangInputTest() {
        input.setOverhang({.top = 10, .right = 20}, {300, 84});
        input.setHosted({{0, 0, 300, 84}});
        input.setInputRegion(Rect{0, 26, 305, 58});
    }
};

TEST_F(OverhangInputTest, TheOverhangIsNoPartOfTheDock) {
    input.pointerEntered({100, 90}, false);
    input.pointerMoved({310, 40});
    EXPECT_EQ(listener.entered, 0);
    EXPECT_FALSE(input.takesPointer({310, 40}));

    input.pointerMoved({100, 80});
    EXPECT_EQ(listener.entered, 1);
    // The topmost row of pixels.
    input.pointerMoved({100, 84});
    EXPECT_EQ(listener.exited, 0);
    input.pointerMoved({100, 84.5});
    EXPECT_EQ(listener.exited, 1);
}

TEST_F(OverhangInputTest, WhatTakesThePointerThereBelongsToTheDock) {
    input.pointerEntered({302, 40}, false);
    EXPECT_EQ(listener.entered, 1);
    EXPECT_EQ(listener.events, (std::vector<PointerEvent>{{Kind::moved, {302, 44}}}));
    EXPECT_TRUE(input.takesPointer({302, 40}));
}

TEST_F(OverhangInputTest, AHeldButtonKeepsThePointerThere) {
    input.pressed({100, 40}, false);
    input.pointerMoved({310, 40});
    EXPECT_EQ(listener.exited, 0);

    input.released({310, 40}, true);
    EXPECT_EQ(listener.exited, 1);
}

TEST_F(OverhangInputTest, AMenuThatClosesOverItLetsThePointerGo) {
    input.pointerEntered({100, 40}, false);
    input.menuOpened();
    input.menuClosed({310, 40}, true);
    EXPECT_EQ(listener.exited, 1);
}

TEST_F(OverhangInputTest, ADragThroughItIsNotOverTheDock) {
    EXPECT_FALSE(input.dragEntered({"file:///a"}, {310, 40}));
    EXPECT_TRUE(listener.dragged.empty());

    EXPECT_TRUE(input.dragMoved({100, 40}));
    EXPECT_EQ(listener.dragged, (std::vector<std::string>{"file:///a"}));

    EXPECT_FALSE(input.dragMoved({310, 40}));
    EXPECT_EQ(listener.dragsLeft, 1);
    EXPECT_FALSE(input.dropped({310, 40}));
}

TEST_F(PanelInputTest, ADragBringsItsURLsOnceAndThenItsPlaces) {
    EXPECT_TRUE(input.dragEntered({"file:///a", "file:///b"}, {10, 80}));
    EXPECT_TRUE(input.dragMoved({20, 60}));

    EXPECT_EQ(listener.dragged, (std::vector<std::string>{"file:///a", "file:///b"}));
    EXPECT_EQ(listener.dragPoints, (std::vector<Point>{{10, 8}, {20, 28}}));
}

TEST_F(PanelInputTest, ADragThatTheViewRefusesIsRefused) {
    listener.takesDrops = false;

    EXPECT_FALSE(input.dragEntered({"file:///a"}, {10, 80}));
    EXPECT_FALSE(input.dropped({10, 80}));
}

TEST_F(PanelInputTest, ADragThatLeavesAndEndsIsOneExit) {
    input.dragEntered({"file:///a"}, {10, 80});

    input.dragEnded();
    input.dragEnded();

    EXPECT_EQ(listener.dragsLeft, 1);
}

TEST_F(PanelInputTest, ADropEndsTheDrag) {
    input.dragEntered({"file:///a"}, {10, 80});

    EXPECT_TRUE(input.dropped({10, 80}));
    input.dragEnded();

    EXPECT_EQ(listener.drops, (std::vector<Point>{{10, 8}}));
    EXPECT_EQ(listener.dragsLeft, 0);
    EXPECT_FALSE(input.dropped({10, 80}));
}

TEST_F(PanelInputTest, AnotherDragEndsTheOneBefore) {
    input.dragEntered({"file:///a"}, {10, 80});

    input.dragEntered({"file:///b"}, {10, 80});

    EXPECT_EQ(listener.dragsLeft, 1);
    EXPECT_EQ(listener.dragged, (std::vector<std::string>{"file:///b"}));
}

TEST_F(PanelInputTest, AHiddenWindowHasNoPointerOverIt) {
    input.pointerEntered({10, 20}, false);
    input.pressed({10, 20}, false);

    input.hidden();

    EXPECT_EQ(listener.events[2].kind, Kind::cancelled);
    EXPECT_EQ(listener.exited, 1);
}

}
}
