#include "App/WindowSystemChoice.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

using Kind = WindowSystemChoice::Kind;

constexpr SessionFacts everything{.hasCompositor = true,
                                  .hasWaylandPlugin = true,
                                  .hasLayerShell = true,
                                  .listsWindows = true,
                                  .hasXServer = true};

TEST(WindowSystemChoice, IsWaylandWhereDocksAndAppsWorkThere) {
    EXPECT_EQ(WindowSystemChoice::of(everything), (WindowSystemChoice{Kind::wayland, ""}));
    SessionFacts facts = everything;
    facts.hasXServer = false;
    EXPECT_EQ(WindowSystemChoice::of(facts), (WindowSystemChoice{Kind::wayland, ""}));
}

TEST(WindowSystemChoice, IsX11WithoutARemarkWhereNothingElseRuns) {
    EXPECT_EQ(WindowSystemChoice::of({.hasXServer = true}), WindowSystemChoice{});
    EXPECT_EQ(WindowSystemChoice::of({}), WindowSystemChoice{});
}

TEST(WindowSystemChoice, IsXwaylandUnderACompositorWithoutTheLayerShell) {
    SessionFacts facts = everything;
    facts.hasLayerShell = false;
    const auto choice = WindowSystemChoice::of(facts);
    EXPECT_EQ(choice.kind, Kind::x11);
    EXPECT_TRUE(choice.remark.starts_with("this compositor has no layer shell: ")) << choice.remark;
}

TEST(WindowSystemChoice, IsXwaylandUnderACompositorThatListsNoWindows) {
    SessionFacts facts = everything;
    facts.listsWindows = false;
    const auto choice = WindowSystemChoice::of(facts);
    EXPECT_EQ(choice.kind, Kind::x11);
    EXPECT_TRUE(choice.remark.starts_with("this compositor does not list windows: "))
        << choice.remark;
}

TEST(WindowSystemChoice, IsWaylandNeverthelessWithoutXwayland) {
    SessionFacts facts = everything;
    facts.listsWindows = false;
    facts.hasXServer = false;
    const auto choice = WindowSystemChoice::of(facts);
    EXPECT_EQ(choice.kind, Kind::wayland);
    EXPECT_FALSE(choice.remark.empty());
}

TEST(WindowSystemChoice, IsWaylandWithARemarkUnderAKWinThatListsNoWindows) {
    SessionFacts facts = everything;
    facts.isKWin = true;
    EXPECT_EQ(WindowSystemChoice::of(facts), (WindowSystemChoice{Kind::wayland, ""}));

    facts.listsWindows = false;
    const auto choice = WindowSystemChoice::of(facts);
    EXPECT_EQ(choice.kind, Kind::wayland);
    EXPECT_TRUE(choice.remark.starts_with("KWin lists windows only for programs whose installed "
                                          "desktop entry asks for it"))
        << choice.remark;
}

TEST(WindowSystemChoice, IsX11WithoutQtsPlugin) {
    SessionFacts facts = everything;
    facts.hasWaylandPlugin = false;
    const auto choice = WindowSystemChoice::of(facts);
    EXPECT_EQ(choice.kind, Kind::x11);
    EXPECT_TRUE(choice.remark.starts_with("Qt's plugin for Wayland is missing: ")) << choice.remark;
}

}
}
