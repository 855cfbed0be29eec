#include "Compositors/Sway/SwayCommands.hpp"
#include "Compositors/Sway/SwayMessages.hpp"
#include "Compositors/Sway/SwayTree.hpp"

#include <gtest/gtest.h>

#include <string>

namespace vireline::wayland {
namespace {

TEST(SwayMessages, AreReadFromWhateverPiecesTheyArriveIn) {
    const SwayMessage first{SwayMessageType::getTree, R"({"type": "root"})"};
    const SwayMessage second{SwayMessageType::windowEvent, ""};
    const std::string bytes =
        SwayMessages::bytes(first.type, first.text) + SwayMessages::bytes(second.type, second.text);
    for (std::size_t piece = 1; piece <= bytes.size(); ++piece) {
        SwayMessageReader reader;
        std::vector<SwayMessage> messages;
        for (std::size_t i = 0; i < bytes.size(); i += piece) {
            reader.add(std::string_view{bytes}.substr(i, piece));
            while (auto message = reader.next())
                messages.push_back(*std::move(message));
        }
        EXPECT_EQ(messages, (std::vector{first, second})) << piece;
        EXPECT_FALSE(reader.isBroken());
    }
}

TEST(SwayMessages, AreNotReadFromAnotherProtocol) {
    SwayMessageReader reader;

    reader.add("HTTP/1.1 200 OK");

    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.isBroken());
}

TEST(SwayMessages, AreNotReadIfTheyClaimToBeHuge) {
    auto bytes = SwayMessages::bytes(SwayMessageType::getTree, "");
    bytes[6 + 3] = 0x7f;
    SwayMessageReader reader;

    reader.add(bytes);

    EXPECT_FALSE(reader.next());
    EXPECT_TRUE(reader.isBroken());
}

TEST(SwayMessages, TellWhetherAllOfACommandWasCarriedOut) {
    EXPECT_TRUE(SwayMessages::reportsSuccess(R"([ { "success": true } ])"));
    EXPECT_FALSE(SwayMessages::reportsSuccess(R"([{"success": true}, {"success": false}])"));
    EXPECT_FALSE(SwayMessages::reportsSuccess("[]"));
    EXPECT_FALSE(SwayMessages::reportsSuccess("nonsense"));
}

constexpr std::string_view sampleTree = R"({
  "id": 1, "type": "root", "focus": [5, 3], "floating_nodes": [], "nodes": [
    {"id": 90, "type": "output", "name": "__i3", "focus": [], "floating_nodes": [], "nodes": [
      {"id": 91, "type": "workspace", "name": "__i3_scratch", "focus": [], "nodes": [],
       "floating_nodes": [
        {"id": 12, "type": "floating_con", "name": "Hidden", "pid": 70, "app_id": "org.example.c",
         "rect": {"x": 10, "y": 20, "width": 300, "height": 200}, "deco_rect": {"height": 0},
         "focused": false, "visible": false, "nodes": [], "floating_nodes": []}]}]},
    {"id": 3, "type": "output", "name": "DP-1", "current_workspace": "1", "focus": [4],
     "rect": {"x": 0, "y": 0, "width": 1280, "height": 720}, "floating_nodes": [], "nodes": [
      {"id": 4, "type": "workspace", "name": "1", "focus": [8, 7], "floating_nodes": [], "nodes": [
        {"id": 7, "type": "con", "name": null, "pid": 50, "app_id": null, "focused": false,
         "visible": true, "rect": {"x": 0, "y": 25, "width": 640, "height": 695},
         "deco_rect": {"height": 25}, "nodes": [], "floating_nodes": []},
        {"id": 8, "type": "con", "name": null, "focus": [9], "floating_nodes": [], "nodes": [
          {"id": 9, "type": "con", "name": "Old", "pid": 51, "app_id": null, "focused": true,
           "visible": true, "rect": {"x": 640, "y": 0, "width": 640, "height": 720},
           "window_properties": {"class": "XTerm", "instance": "xterm", "transient_for": 4711},
           "nodes": [], "floating_nodes": []}]}]}]},
    {"id": 5, "type": "output", "name": "DP-2", "current_workspace": "2", "focus": [6],
     "rect": {"x": 1280, "y": 0, "width": 1920, "height": 1080}, "floating_nodes": [], "nodes": [
      {"id": 6, "type": "workspace", "name": "2", "focus": [], "nodes": [], "floating_nodes": []}]}
  ]})";

TEST(SwayTree, KnowsWindowsInTheOrderOfTheirFocus) {
    const auto tree = SwayTree::parse(sampleTree);

    ASSERT_TRUE(tree);
    ASSERT_EQ(tree->windows.size(), 3U);
    EXPECT_EQ(tree->windows[0].id, 9);
    EXPECT_EQ(tree->windows[1].id, 7);
    EXPECT_EQ(tree->windows[2].id, 12);
}

TEST(SwayTree, KnowsWhatItSaysOfEachWindow) {
    const auto tree = SwayTree::parse(sampleTree).value_or(SwayTree{});
    SwayWindow nameless;
    nameless.id = 7;
    nameless.processIdentifier = 50;
    nameless.frame = {0, 0, 640, 720};
    nameless.workspace = "1";
    nameless.isVisible = true;
    SwayWindow old;
    old.id = 9;
    old.className = "XTerm";
    old.instance = "xterm";
    old.title = "Old";
    old.processIdentifier = 51;
    old.frame = {640, 0, 640, 720};
    old.workspace = "1";
    old.isFocused = true;
    old.isVisible = true;
    old.isTransient = true;
    SwayWindow hidden;
    hidden.id = 12;
    hidden.appID = "org.example.c";
    hidden.title = "Hidden";
    hidden.processIdentifier = 70;
    hidden.frame = {10, 20, 300, 200};
    hidden.isFloating = true;
    hidden.isInScratchpad = true;

    ASSERT_NE(tree.window(7), nullptr);
    EXPECT_EQ(*tree.window(7), nameless);
    ASSERT_NE(tree.window(9), nullptr);
    EXPECT_EQ(*tree.window(9), old);
    ASSERT_NE(tree.window(12), nullptr);
    EXPECT_EQ(*tree.window(12), hidden);
    EXPECT_EQ(tree.window(4711), nullptr);
}

TEST(SwayTree, FindsTheOutputAtAPointOrTheNearest) {
    const auto tree = SwayTree::parse(sampleTree).value_or(SwayTree{});

    ASSERT_EQ(tree.outputs.size(), 2U) << "the one behind the scratchpad is none";
    EXPECT_EQ(tree.outputAt({1279, 719})->name, "DP-1");
    EXPECT_EQ(tree.outputAt({1281, 1079})->workspace, "2");
    EXPECT_EQ(tree.outputAt({-500, 300})->name, "DP-1");
    EXPECT_EQ(SwayTree{}.outputAt({0, 0}), nullptr);
}

TEST(SwayTree, IsNotReadFromSomethingElse) {
    for (const std::string_view text : {"", "nonsense", "[]", "{}", R"({"type": "workspace"})"})
        EXPECT_FALSE(SwayTree::parse(text)) << text;
}

TEST(SwayTree, IsReadEvenIfValuesHaveWrongTypes) {
    const auto tree = SwayTree::parse(
        R"({"type": "root", "nodes": [7, {"pid": "x", "id": "y", "rect": []}, {"nodes": 3}]})");

    ASSERT_TRUE(tree);
    ASSERT_EQ(tree->windows.size(), 1U);
    EXPECT_EQ(tree->windows[0], SwayWindow{});
}

TEST(SwayTree, BoundsWhatWindowsSayOfThemselves) {
    const std::string huge(1U << 20U, 'x');
    const auto tree = SwayTree::parse(R"({"type": "root", "nodes": [{"pid": 1, "app_id": ")" +
                                      huge + R"(", "name": ")" + huge + R"("}]})");

    ASSERT_TRUE(tree);
    EXPECT_EQ(tree->windows.at(0).appID.size(), 256U);
    EXPECT_EQ(tree->windows.at(0).title.size(), 256U);
}

SwayTree twoOutputs() {
    SwayTree tree;
    tree.outputs = {{"DP-1", {0, 0, 1280, 720}, "1"}, {"DP-2", {1280, 0, 1280, 720}, "2"}};
    return tree;
}

SwayWindow windowOn(const std::string& workspace, bool isFloating) {
    SwayWindow window;
    window.id = 7;
    window.workspace = workspace;
    window.frame = {100, 100, 400, 300};
    window.isFloating = isFloating;
    return window;
}

TEST(SwayCommands, MoveAFloatingWindowToItsPlace) {
    EXPECT_EQ(SwayCommands::move(windowOn("1", true), {-3.4, 20}, twoOutputs()),
              "[con_id=7] move absolute position -3 20");
}

TEST(SwayCommands, ShowAWindowWhoseWorkspaceIsNotShown) {
    EXPECT_EQ(SwayCommands::move(windowOn("9", true), {1300, 20}, twoOutputs()),
              "[con_id=7] move container to workspace \"2\", move absolute position 1300 20");
}

TEST(SwayCommands, LeaveATiledWindowTiled) {
    EXPECT_EQ(SwayCommands::move(windowOn("1", false), {1300, 20}, twoOutputs()),
              "[con_id=7] move container to workspace \"2\"");
    EXPECT_EQ(SwayCommands::move(windowOn("1", false), {300, 20}, twoOutputs()), std::nullopt);
}

TEST(SwayCommands, GoByTheWindowsCentreForItsOutput) {
    EXPECT_EQ(SwayCommands::move(windowOn("1", false), {1100, 20}, twoOutputs()),
              "[con_id=7] move container to workspace \"2\"");
}

TEST(SwayCommands, ResizeATiledWindowAsAFloatingOne) {
    EXPECT_EQ(SwayCommands::place(windowOn("1", false), {0, 0, 1280, 640}, twoOutputs()),
              "[con_id=7] floating enable, resize set 1280 px 640 px, move absolute position 0 0");
    EXPECT_EQ(SwayCommands::place(windowOn("1", false), {100, 100, 400, 300}, twoOutputs()),
              std::nullopt);
}

TEST(SwayCommands, BringAWindowBackToWhereItWas) {
    EXPECT_EQ(SwayCommands::bringBack(windowOn("3: \"mail\"", true)),
              "[con_id=7] move container to workspace '3: \"mail\"'");
    EXPECT_EQ(SwayCommands::bringBack(windowOn("1", false)),
              "[con_id=7] move container to workspace \"1\", floating disable");
}

}
}
