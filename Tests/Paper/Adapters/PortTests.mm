// Each of the ports that query the system.
#include "App/MacMotionSettings.hpp"
#include "App/MacPointerSettings.hpp"
#include "App/MainRunLoop.hpp"
#include "Applications/WorkspaceApplications.hpp"
#include "Applications/WorkspaceCatalog.hpp"
#include "ClientWindows/AXAccessibility.hpp"
#include "Cocoa/Paper.hpp"
#include "Desktop/CFDockPreferences.hpp"
#include "Desktop/FoundationPropertyLists.hpp"
#include "Displays/MacScreens.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Icons/MacImage.hpp"
#include "Icons/WorkspaceIcons.hpp"
#include "Session/MainAppLoginItem.hpp"
#include "StatusBar/MenuBar.hpp"
#include "Support/LoggedLines.hpp"
#include "Unseen.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <thread>

namespace vireline::macos {
namespace {

class Ports : public testing::Test, private NonCopyable {
protected:
    ~Ports() override {
        EXPECT_EQ(remains(), std::vector<std::string>{});
        EXPECT_EQ(unseenFaults(), std::vector<std::string>{});
    }

    static void post(NSNotificationCenter* center, NSNotificationName name, NSDictionary* info) {
        @autoreleasepool {
            [center paperPost:name userInfo:info];
            paper::drain();
        }
    }
};

TEST_F(Ports, DescribeEachDisplay) {
    paper::plug({{.number = 3,
                  .frame = {{0, 0}, {1440, 900}},
                  .visible = {{0, 70}, {1440, 805}},
                  .scale = 2,
                  .unit = 5}});
    const auto screens = MacScreens{}.screens();
    ASSERT_EQ(screens.size(), 1U);
    EXPECT_EQ(screens[0], (PlatformScreen{.number = 3,
                                          .unitNumber = 5,
                                          .frame = {0, 0, 1440, 900},
                                          .visibleFrame = {0, 70, 1440, 805},
                                          .backingScaleFactor = 2}));
}

TEST_F(Ports, KnowWhatTheSystemCallsADisplay) {
    @autoreleasepool {
        paper::plug({{.number = 3, .name = "Built-in Display"}, {.number = 5, .name = "Studio"}});
        EXPECT_EQ(displayName(5), "Studio");
        EXPECT_EQ(displayName(4), std::nullopt);
    }
}

TEST_F(Ports, IgnoreAnInvalidDisplayNumber) {
    @autoreleasepool {
        paper::plug({{.number = 1, .unit = 5}});
        NSScreen* const screen = NSScreen.screens.firstObject;
        for (id number in @[
                 @"1", @YES, [NSNumber numberWithDouble:1.5], [NSNumber numberWithLongLong:-1],
                 [NSNumber numberWithLongLong:1LL << 32]
             ]) {
            screen.deviceDescription = @{@"NSScreenNumber" : number};
            EXPECT_EQ(MacScreens{}.screens().at(0).number, std::nullopt);
            EXPECT_EQ(MacScreens{}.screens().at(0).unitNumber, 0U);
        }
        screen.deviceDescription = @{};
        EXPECT_EQ(MacScreens{}.screens().at(0).number, std::nullopt);
    }
}

TEST_F(Ports, HearOfEveryChangeOfTheDisplays) {
    int heard = 0;
    MacScreens port;
    Subscription subscription = port.observeParameters([&] { ++heard; });
    NSNotificationCenter* const workspace = NSWorkspace.sharedWorkspace.notificationCenter;
    post(NSNotificationCenter.defaultCenter, NSApplicationDidChangeScreenParametersNotification,
         nil);
    EXPECT_EQ(heard, 1);
    const std::array<NSNotificationName, 5> names{
        NSWorkspaceDidWakeNotification, NSWorkspaceScreensDidSleepNotification,
        NSWorkspaceScreensDidWakeNotification, NSWorkspaceSessionDidBecomeActiveNotification,
        NSWorkspaceSessionDidResignActiveNotification};
    for (NSNotificationName name : names)
        post(workspace, name, nil);
    EXPECT_EQ(heard, 6);
    paper::announceMainDisplay(1);
    EXPECT_EQ(heard, 6) << "the screens are not up to date before the next turn";
    paper::drain();
    EXPECT_EQ(heard, 7);
    paper::announceMainDisplay(1);
    subscription.reset();
    paper::drain();
    EXPECT_EQ(heard, 7);
}

TEST_F(Ports, KnowTenAppsForAMacWithNothingToMirror) {
    const WorkspaceCatalog catalog;
    EXPECT_EQ(catalog.wellKnownBundleIDs(),
              (std::vector<std::string>{
                  "com.apple.finder", "com.apple.Safari", "com.google.Chrome", "com.apple.mail",
                  "com.microsoft.VSCode", "com.apple.dt.Xcode", "net.whatsapp.WhatsApp",
                  "com.spotify.client", "com.apple.iCal", "com.apple.Notes"}));
    EXPECT_EQ(catalog.fileManager().bundleID, catalog.wellKnownBundleIDs().front());
}

TEST_F(Ports, AnswerAsIsUsualWhereTheSystemRaises) {
    paper::plug({{.number = 1}});
    constexpr std::array selectors{"doubleClickInterval", "sharedWorkspace",    "screens",
                                   "bundleWithURL:",      "displayNameAtPath:", "numberWithBool:"};
    for (const char* const selector : selectors)
        paper::rt::makeRaise(selector);
    EXPECT_DOUBLE_EQ(MacPointerSettings{}.doubleClickInterval(), 0.5);
    EXPECT_FALSE(MacMotionSettings{}.reducesMotion());
    EXPECT_TRUE(MacScreens{}.screens().empty());
    const auto app = FileURL::fromPath("/Applications/Notes.app");
    EXPECT_EQ(WorkspaceCatalog{}.urlForBundleID("com.example.Notes"), std::nullopt);
    EXPECT_EQ(WorkspaceCatalog{}.bundleIdentifier(app), std::nullopt);
    EXPECT_EQ(WorkspaceCatalog{}.displayName(app), "Notes.app");
    EXPECT_FALSE(AXAccessibility{}.isTrustedWithPrompt());
    for (const char* const selector : selectors)
        EXPECT_GE(paper::rt::raised(selector), 1) << selector;
    paper::rt::clearFaults();
}

TEST_F(Ports, DescribeRunningAppsButThoseThatHaveEnded) {
    @autoreleasepool {
        NSRunningApplication* const notes =
            paper::run({"com.example.Notes", "Notes", 501, "/Applications/Notes.app"});
        notes.active = YES;
        paper::run({"", "Helper", 502, ""}).activationPolicy =
            static_cast<NSApplicationActivationPolicy>(2);
        paper::run({"com.example.Menu", "Menu", 503, "/Applications/Menu.app"}).activationPolicy =
            NSApplicationActivationPolicyAccessory;
        paper::run({"com.example.Gone", "Gone", 504, "/Gone.app"}).terminated = YES;
        const WorkspaceApplications port;
        const std::vector<RunningApplication> expected{
            {.bundleID = "com.example.Notes",
             .bundleURL = FileURL::fromPath("/Applications/Notes.app"),
             .localizedName = "Notes",
             .activationPolicy = ActivationPolicy::regular,
             .processIdentifier = 501,
             .isActive = true},
            {.bundleID = std::nullopt,
             .bundleURL = std::nullopt,
             .localizedName = "Helper",
             .activationPolicy = ActivationPolicy::prohibited,
             .processIdentifier = 502},
            {.bundleID = "com.example.Menu",
             .bundleURL = FileURL::fromPath("/Applications/Menu.app"),
             .localizedName = "Menu",
             .activationPolicy = ActivationPolicy::accessory,
             .processIdentifier = 503}};
        EXPECT_TRUE(port.running() == expected);
        EXPECT_TRUE(port.instances("com.example.Notes") == std::vector{expected.front()});
        EXPECT_TRUE(port.instances("com.example.None").empty());
    }
}

TEST_F(Ports, HearOfAppsAlsoWhenTheSystemDoesNotSayWhich) {
    using Announced = std::optional<RunningApplication>;
    std::vector<std::pair<char, Announced>> heard;
    const auto hears = [&](char kind) {
        return [&heard, kind](const Announced& app) { heard.emplace_back(kind, app); };
    };
    WorkspaceApplications port;
    std::vector<Subscription> subscriptions;
    subscriptions.push_back(port.observeWillLaunch(hears('w')));
    subscriptions.push_back(port.observeDidLaunch(hears('l')));
    subscriptions.push_back(port.observeDidTerminate(hears('t')));
    @autoreleasepool {
        paper::launch({"com.example.Notes", "Notes", 501, "/Applications/Notes.app"});
        paper::quit(501);
    }
    ASSERT_EQ(heard.size(), 3U);
    EXPECT_EQ(heard[0].first, 'w');
    EXPECT_EQ(heard[1].first, 'l');
    EXPECT_EQ(heard[2].first, 't');
    for (const auto& [kind, app] : heard)
        EXPECT_EQ(app->bundleID, "com.example.Notes");
    NSNotificationCenter* const center = NSWorkspace.sharedWorkspace.notificationCenter;
    post(center, NSWorkspaceDidLaunchApplicationNotification, nil);
    @autoreleasepool {
        post(center, NSWorkspaceDidLaunchApplicationNotification,
             @{NSWorkspaceApplicationKey : @"Notes"});
    }
    ASSERT_EQ(heard.size(), 5U);
    EXPECT_EQ(heard[3].second, std::nullopt);
    EXPECT_EQ(heard[4].second, std::nullopt);
}

TEST_F(Ports, HearWhenTheSystemsDockHasOtherPreferences) {
    int heard = 0;
    CFDockPreferences port;
    Subscription subscription = port.observeChanges([&] { ++heard; });
    NSNotificationCenter* const center = NSDistributedNotificationCenter.defaultCenter;
    post(center, @"com.apple.dock.prefchanged", nil);
    post(center, @"com.example.other", nil);
    EXPECT_EQ(heard, 1);
    subscription.reset();
    post(center, @"com.apple.dock.prefchanged", nil);
    EXPECT_EQ(heard, 1);
    EXPECT_FALSE(port.persistentApps());
}

TEST_F(Ports, GiveAnImageOfItsOwnInTheSizeThatIsAskedFor) {
    @autoreleasepool {
        WorkspaceIcons port;
        const std::array<ImageHandle, 3> images{
            port.iconForFile("/Applications/Notes.app", "", {44, 44}),
            port.namedImage("NSTrashEmpty", {44, 44}),
            port.symbol("trash.fill", "Trash", {44, 44})};
        const std::array<const char*, 3> names{"/Applications/Notes.app", "NSTrashEmpty",
                                               "trash.fill"};
        for (std::size_t index = 0; index < images.size(); ++index) {
            const auto* const image = dynamic_cast<const MacImage*>(images.at(index).get());
            ASSERT_NE(image, nullptr);
            EXPECT_EQ(image->size(), (Size{44, 44}));
            EXPECT_EQ(image->image().size.width, 44);
            EXPECT_EQ(image->image().paperName.paperText, names.at(index));
        }
    }
}

TEST_F(Ports, TellWhyALoginItemCannotBeRegistered) {
    @autoreleasepool {
        MainAppLoginItem port;
        EXPECT_EQ(port.status(), LoginItemService::Status::notRegistered);
        ASSERT_TRUE(port.registerItem());
        EXPECT_EQ(port.status(), LoginItemService::Status::enabled);
        paper::refuseLoginItem(13);
        const auto unregistered = port.unregisterItem();
        ASSERT_FALSE(unregistered);
        EXPECT_EQ(unregistered.error().code, 13);
        const auto registered = port.registerItem();
        ASSERT_FALSE(registered);
        EXPECT_EQ(registered.error().code, 13);
        EXPECT_EQ(port.status(), LoginItemService::Status::enabled);
        paper::refuseLoginItem(0);
        ASSERT_TRUE(port.unregisterItem());
        SMAppService.mainAppService.status = SMAppServiceStatusRequiresApproval;
        EXPECT_EQ(port.status(), LoginItemService::Status::requiresApproval);
        SMAppService.mainAppService.status = static_cast<SMAppServiceStatus>(3);
        EXPECT_EQ(port.status(), LoginItemService::Status::notFound);
    }
}

TEST_F(Ports, RefuseAnEmptyPropertyList) {
    @autoreleasepool {
        const auto decoded = FoundationPropertyLists{}.decode({});
        ASSERT_FALSE(decoded);
        EXPECT_EQ(decoded.error().code, EINVAL);
    }
}

TEST_F(Ports, CallNothingLaterThatWasDroppedEvenIfTheTimerCannotBeEnded) {
    int fired = 0;
    MainRunLoop loop;
    Timer timer = loop.after(1, [&] { ++fired; });
    paper::rt::makeRaise("invalidate");
    timer = {};
    EXPECT_EQ(paper::rt::raised("invalidate"), 1);
    paper::rt::clearFaults();
    paper::advance(2);
    EXPECT_EQ(fired, 0);
}

TEST_F(Ports, ShowAStatusItemWhoseMenuIsUpToDateWheneverItOpens) {
    @autoreleasepool {
        const test::LoggedLines log;
        int looks = 0;
        std::vector<std::string> chosen;
        const auto item = MenuBar{}.makeStatusItem();
        item->setImage("dock.rectangle", "Vireline");
        item->setMenu([&] {
            const bool isFirst = ++looks == 1;
            return Menu{{MenuCommand{.title = "First",
                                     .keyEquivalent = ',',
                                     .action = [&] { chosen.push_back("first"); }},
                         MenuSeparator{},
                         MenuCommand{.title = isFirst ? "Second" : "Look",
                                     .isChecked = looks % 2 == 0,
                                     .action = [&] { chosen.push_back("second"); }}}};
        });
        ASSERT_TRUE(item->hasPlace());
        EXPECT_EQ(log.messages(), std::vector<std::string>{}) << "the menu bar has taken it";
        NSStatusItem* const shown = paper::statusItems().front();
        EXPECT_EQ(shown.button.image.paperName.paperText, "dock.rectangle");
        [shown.menu paperUpdate];
        NSArray<NSMenuItem*>* const items = [shown.menu paperItems];
        ASSERT_EQ(items.count, 3U);
        EXPECT_EQ(items[0].title.paperText, "First");
        EXPECT_EQ(items[0].paperKeyEquivalent.paperText, ",");
        EXPECT_EQ(items[0].state, NSControlStateValueOff);
        EXPECT_TRUE(items[1].paperIsSeparator);
        EXPECT_EQ(items[2].title.paperText, "Look");
        EXPECT_EQ(items[2].paperKeyEquivalent.paperText, "");
        EXPECT_EQ(items[2].state, NSControlStateValueOn);
        [shown.menu paperUpdate];
        EXPECT_EQ(items[2].state, NSControlStateValueOff);
        [shown.menu paperChoose:items[2]];
        EXPECT_EQ(chosen, std::vector<std::string>{"second"});
    }
    paper::drain();
}

TEST(Threads, ThatSendAMessageToWhatBelongsToTheMainThreadAreNoticed) {
    EXPECT_EQ(unseenFaults(), std::vector<std::string>{});
    std::thread{[] {
        @autoreleasepool {
            // Documented as thread-safe.
            static_cast<void>([NSFileManager.defaultManager fileExistsAtPath:@"/tmp"]);
            static_cast<void>(NSScreen.screens);
        }
    }}.join();
    EXPECT_EQ(unseenFaults(), std::vector<std::string>{"off the main thread: NSScreen screens"});
}

}
}
