// Other programs' windows: what their accessibility elements return, and every way in which they
// fail.
#include "ClientWindows/AXAccessibility.hpp"
#include "Cocoa/Paper.hpp"

#include <gtest/gtest.h>

#include <array>

namespace vireline::macos {
namespace {

class Elements : public testing::Test {
protected:
    Elements() {
        paper::setTrusted(true);
        paper::foreignApps()[501].windows = {{.position = {10, 20}, .size = {300, 200}},
                                             {.position = {50, 60}, .size = {400, 250}}};
    }

    AXAccessibility port;
    ElementHandle app = port.application(501, "com.example.Notes");
};

TEST_F(Elements, TellAndTakePositionsAndSizes) {
    const auto main = port.mainWindow(*app);
    ASSERT_TRUE(main);
    EXPECT_EQ(port.position(**main).value(), (Point{10, 20}));
    EXPECT_EQ(port.size(**main).value(), (Size{300, 200}));
    EXPECT_TRUE(port.setPosition(**main, {70, 80}));
    EXPECT_TRUE(port.setSize(**main, {500, 350}));
    const paper::ForeignWindow& window = paper::foreignApps()[501].windows.front();
    EXPECT_EQ(window.position.x, 70);
    EXPECT_EQ(window.position.y, 80);
    EXPECT_EQ(window.size.width, 500);
    EXPECT_EQ(window.size.height, 350);
}

TEST_F(Elements, ListAllWindows) {
    const auto windows = port.windows(*app);
    ASSERT_TRUE(windows);
    ASSERT_EQ(windows->size(), 2U);
    EXPECT_EQ(port.position(*windows->at(1)).value(), (Point{50, 60}));
}

TEST_F(Elements, SayWhyTheyDoNotAnswer) {
    const auto main = port.mainWindow(*app).value();
    paper::foreignApps()[501].windows.front().error = kAXErrorFailure;
    EXPECT_EQ(port.position(*main).error().code, kAXErrorFailure);
    EXPECT_EQ(port.size(*main).error().code, kAXErrorFailure);
    EXPECT_EQ(port.setPosition(*main, {}).error().code, kAXErrorFailure);
    EXPECT_EQ(port.setSize(*main, {}).error().code, kAXErrorFailure);
    EXPECT_FALSE(port.setSize(*main, {}).error().description.empty());
    paper::foreignApps()[501].windows.clear();
    EXPECT_FALSE(port.mainWindow(*app));
    EXPECT_TRUE(port.windows(*app)->empty());
    const auto none = port.application(502, "");
    EXPECT_FALSE(port.mainWindow(*none));
    EXPECT_FALSE(port.windows(*none));
}

TEST_F(Elements, TellTheTitlesOfAllWindowsAndWhichIsActive) {
    auto& windows = paper::foreignApps()[501].windows;
    windows[0].title = "Shopping";
    windows[1].title = "Ideas";
    auto open = port.openWindows(*app);
    ASSERT_TRUE(open);
    ASSERT_EQ(open->size(), 2U);
    EXPECT_EQ(open->at(0).title, "Shopping");
    EXPECT_EQ(open->at(1).title, "Ideas");
    EXPECT_FALSE(open->at(0).isActive) << "another app is frontmost";
    paper::foreignApps()[501].isFrontmost = true;
    open = port.openWindows(*app);
    EXPECT_TRUE(open->at(0).isActive);
    EXPECT_FALSE(open->at(1).isActive);
}

TEST_F(Elements, TellNoTitlesWithoutThePermission) {
    paper::setTrusted(false);
    const int before = paper::foreignApps()[501].questions;
    EXPECT_EQ(port.openWindows(*app).error().code, kAXErrorAPIDisabled);
    EXPECT_EQ(paper::foreignApps()[501].questions, before);
}

TEST_F(Elements, TellATitleThatIsNoTextAsNone) {
    paper::foreignApps()[501].nonsense = {"AXMain", "AXFrontmost"};
    const auto open = port.openWindows(*app);
    ASSERT_TRUE(open);
    EXPECT_EQ(open->at(0).title, "");
    EXPECT_FALSE(open->at(0).isActive);
}

TEST_F(Elements, GiveUpOnTheTitlesOfASlowAppAfterHalfASecondInTotal) {
    paper::foreignApps()[501].windows.resize(100);
    paper::foreignApps()[501].delay = 0.01;
    const double before = paper::now();
    EXPECT_FALSE(port.openWindows(*app));
    EXPECT_NEAR(paper::now() - before, 0.5, 0.02);
}

TEST_F(Elements, AreNotAskedForATitleWhenNoTimeIsLeft) {
    paper::foreignApps()[501].delay = 0.25;
    const int before = paper::foreignApps()[501].questions;
    EXPECT_FALSE(port.openWindows(*app));
    EXPECT_EQ(paper::foreignApps()[501].questions - before, 2)
        << "the windows, and whether in front";
}

TEST_F(Elements, WaitForATitleNoLongerThanTheTimeThatIsLeft) {
    paper::foreignApps()[501].delay = 0.125;
    EXPECT_TRUE(port.openWindows(*app));
    paper::foreignApps()[501].delay = 0;
    paper::foreignApps()[501].isHung = true;
    const double before = paper::now();
    EXPECT_FALSE(port.mainWindow(*app));
    EXPECT_DOUBLE_EQ(paper::now() - before, 0.125) << "after three answers";
}

TEST_F(Elements, TellTitlesAlsoWhereTheTimeIsUnknown) {
    paper::rt::makeRaise("systemUptime");
    EXPECT_EQ(port.openWindows(*app)->size(), 2U);
    EXPECT_GE(paper::rt::raised("systemUptime"), 1);
    paper::rt::clearFaults();
}

TEST_F(Elements, AreNullForInvalidListEntries) {
    paper::foreignApps()[501].listsNonsense = true;
    const auto windows = port.windows(*app);
    ASSERT_TRUE(windows);
    EXPECT_EQ(windows->size(), 3U);
    EXPECT_EQ(windows->front(), nullptr);
    EXPECT_EQ(port.openWindows(*app)->size(), 2U);
}

TEST_F(Elements, SayWhichFailureItWas) {
    const auto main = port.mainWindow(*app).value();
    paper::foreignApps()[501].windows.front().error = kAXErrorAPIDisabled;
    EXPECT_EQ(port.position(*main).error().code, kAXErrorAPIDisabled);
    EXPECT_EQ(port.setPosition(*main, {}).error().code, kAXErrorAPIDisabled);
    // Success, but no value.
    paper::foreignApps()[501].errors["AXMainWindow"] = kAXErrorSuccess;
    EXPECT_EQ(port.mainWindow(*app).error().code, kAXErrorFailure);
    paper::foreignApps()[501].errors["AXWindows"] = kAXErrorAPIDisabled;
    EXPECT_EQ(port.openWindows(*app).error().code, kAXErrorAPIDisabled);
}

TEST_F(Elements, AreBroughtForwardAsFarAsTheSystemDoesNotRaise) {
    const auto main = port.mainWindow(*app).value();
    constexpr std::array selectors{"numberWithBool:", "runningApplicationWithProcessIdentifier:"};
    for (const char* const selector : selectors)
        paper::rt::makeRaise(selector);
    EXPECT_TRUE(port.bringForward(*main));
    for (const char* const selector : selectors)
        EXPECT_EQ(paper::rt::raised(selector), 1) << selector;
    paper::rt::clearFaults();
}

TEST_F(Elements, AreRestoredRaisedAndTheirAppActivated) {
    paper::run({"com.example.Notes", "Notes", 501, "/Applications/Notes.app"});
    paper::requests().clear();
    auto& window = paper::foreignApps()[501].windows[1];
    window.title = "Ideas";
    window.isMinimized = true;
    const auto open = port.openWindows(*app);
    @autoreleasepool {
        EXPECT_TRUE(port.bringForward(*open->at(1).element));
    }
    EXPECT_FALSE(window.isMinimized);
    EXPECT_EQ(paper::requests(),
              (std::vector<std::string>{"AXRaise Ideas", "activate com.example.Notes"}));
    window.error = kAXErrorFailure;
    EXPECT_EQ(port.bringForward(*open->at(1).element).error().code, kAXErrorFailure);
}

TEST_F(Elements, AreNotAskedWhereTheSystemMakesNone) {
    paper::makeNoElements(true);
    const auto none = port.application(501, "com.example.Notes");
    paper::makeNoElements(false);
    port.setMessagingTimeout(*none, 0.25F);
    EXPECT_EQ(port.mainWindow(*none).error().code, kAXErrorIllegalArgument);
    EXPECT_EQ(port.windows(*none).error().code, kAXErrorIllegalArgument);
    EXPECT_EQ(port.setPosition(*none, {}).error().code, kAXErrorIllegalArgument);
    EXPECT_EQ(port.bringForward(*none).error().code, kAXErrorIllegalArgument);
    EXPECT_EQ(paper::foreignApps()[501].questions, 0);
}

TEST_F(Elements, WaitNoLongerThanTold) {
    paper::foreignApps()[501].isHung = true;
    port.setMessagingTimeout(*app, 0.25F);
    const double before = paper::now();
    EXPECT_FALSE(port.mainWindow(*app));
    EXPECT_DOUBLE_EQ(paper::now() - before, 0.25);
}

TEST_F(Elements, CanBeMovedOnEveryDesktopSoThatNothingIsEverAnnounced) {
    int announced = 0;
    const Subscription subscription = port.observeManager([&] { ++announced; });
    EXPECT_TRUE(port.canMoveWindows());
    paper::setTrusted(false);
    paper::advance(5);
    EXPECT_TRUE(port.canMoveWindows()) << "the permission is another matter";
    EXPECT_FALSE(port.isTrusted());
    paper::setTrusted(true);
    paper::advance(5);
    EXPECT_TRUE(port.isTrusted());
    EXPECT_EQ(announced, 0);
}

TEST_F(Elements, AreForThoseThatTheUserTrusts) {
    paper::requests().clear();
    EXPECT_TRUE(port.isTrusted());
    paper::setTrusted(false);
    EXPECT_FALSE(port.isTrusted());
    EXPECT_TRUE(paper::requests().empty());
    @autoreleasepool {
        EXPECT_FALSE(port.isTrustedWithPrompt());
    }
    EXPECT_EQ(paper::requests(), std::vector<std::string>{"ask for the permission"});
    EXPECT_TRUE(port.canMoveWindows());
}
}
}
