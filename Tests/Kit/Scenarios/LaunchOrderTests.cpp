/// The order of actions during a launch: the calls to ports, written into the log between the
/// program's own lines.
#include "App/AppDelegate.hpp"
#include "Foundation/DevLog.hpp"
#include "Support/DockFixture.hpp"
#include "Support/LoggedLines.hpp"
#include "Support/OtherPorts.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vireline {
namespace {

using Handler = RunningApplications::Handler;

class NotingStatusBar final : public StatusBar {
public:
    explicit NotingStatusBar(StatusBar& real) : real_(real) {}
    std::unique_ptr<StatusItem> makeStatusItem() override {
        DevLog::write("> status item");
        return real_.makeStatusItem();
    }

private:
    StatusBar& real_;
};

class NotingDockPreferences final : public DockPreferences {
public:
    explicit NotingDockPreferences(DockPreferences& real) : real_(real) {}
    std::optional<PropertyList> persistentApps() override { return real_.persistentApps(); }
    Subscription observeChanges(std::function<void()> handler) override {
        DevLog::write("> mirror follows");
        return real_.observeChanges(std::move(handler));
    }

private:
    DockPreferences& real_;
};

class NotingRunningApplications final : public RunningApplications {
public:
    explicit NotingRunningApplications(RunningApplications& real) : real_(real) {}
    std::vector<RunningApplication> running() const override { return real_.running(); }
    std::vector<RunningApplication> instances(const std::string& bundleID) const override {
        return real_.instances(bundleID);
    }
    void hide(const RunningApplication& app) override { real_.hide(app); }
    void terminate(const RunningApplication& app) override { real_.terminate(app); }
    Subscription observeWillLaunch(Handler handler) override {
        DevLog::write("> monitor follows");
        return real_.observeWillLaunch(std::move(handler));
    }
    Subscription observeDidLaunch(Handler handler) override {
        return real_.observeDidLaunch(std::move(handler));
    }
    Subscription observeDidTerminate(Handler handler) override {
        return real_.observeDidTerminate(std::move(handler));
    }

private:
    RunningApplications& real_;
};

class NotingScreens final : public Screens {
public:
    explicit NotingScreens(Screens& real) : real_(real) {}
    std::vector<PlatformScreen> screens() const override { return real_.screens(); }
    Subscription observeParameters(std::function<void()> handler) override {
        DevLog::write("> coordinator follows");
        return real_.observeParameters(std::move(handler));
    }

private:
    Screens& real_;
};

class NotingProgramWindows final : public ProgramWindows {
public:
    explicit NotingProgramWindows(ProgramWindows& real) : real_(real) {}
    std::unique_ptr<FormWindow> makeFormWindow(const WindowStyle& style,
                                               FormListener& listener) override {
        DevLog::write("> settings window");
        return real_.makeFormWindow(style, listener);
    }
    std::unique_ptr<OnboardingPageWindow>
    makeOnboardingWindow(const WindowStyle& style, OnboardingListener& listener) override {
        DevLog::write("> tour");
        return real_.makeOnboardingWindow(style, listener);
    }

private:
    ProgramWindows& real_;
};

class NotingPointerTaps final : public PointerTaps {
public:
    explicit NotingPointerTaps(PointerTaps& real) : real_(real) {}
    [[nodiscard]] bool needPermission() const override { return real_.needPermission(); }
    Result<std::unique_ptr<PointerTap>> create(PointerRule rule, Disabled onDisabled) override {
        DevLog::write("> tap");
        return real_.create(std::move(rule), std::move(onDisabled));
    }

private:
    PointerTaps& real_;
};

class LaunchOrderTest : public testing::Test {
protected:
    LaunchOrderTest() {
        platform.screens.list = {test::screenWithDock(1, {0, 0, 1920, 1080}),
                                 test::screenAt(2, {1920, 0, 1920, 1080})};
        platform.pin({platform.install("com.apple.finder", "Finder")});
        platform.running.launch(
            test::FakePlatform::instanceOf(platform.install("com.apple.mail", "Mail")));
    }

    [[nodiscard]] Platform notingPorts() {
        return test::with({.dockPreferences = &preferences,
                           .runningApplications = &running,
                           .screens = &screens,
                           .pointerTaps = &taps,
                           .statusBar = &statusBar,
                           .programWindows = &windows},
                          platform.ports());
    }

    test::FakePlatform platform;
    test::LoggedLines log;
    NotingStatusBar statusBar{platform.statusBar};
    NotingDockPreferences preferences{platform.dockPreferences};
    NotingRunningApplications running{platform.running};
    NotingScreens screens{platform.screens};
    NotingProgramWindows windows{platform.programWindows};
    NotingPointerTaps taps{platform.pointerTaps};
};

TEST_F(LaunchOrderTest, NothingHappensBeforeLaunchingHasFinished) {
    const AppDelegate delegate{notingPorts()};

    EXPECT_EQ(log.messages(), std::vector<std::string>{});
    EXPECT_TRUE(platform.panelWindows.made.empty());
}

TEST_F(LaunchOrderTest, IsAlwaysTheSame) {
    AppDelegate delegate{notingPorts()};

    delegate.applicationDidFinishLaunching();

    EXPECT_EQ(log.messages(),
              (std::vector<std::string>{
                  "Vireline started pid=4711",
                  "> status item",
                  "anchor guard off",
                  "> mirror follows",
                  "mirror: 1 pinned apps from Apple's Dock",
                  "reconcile screens=[1, 2] desired=[2] create=1 destroy=0 reframe=0",
                  "created panel #2 at (2769, 4, 222, 84) autoHide=false",
                  "> monitor follows",
                  "reconcile screens=[1, 2] desired=[2] create=0 destroy=0 reframe=0",
                  "> coordinator follows",
                  "> tour",
              }));
}

TEST_F(LaunchOrderTest, TheGuardIsSetUpBeforeTheListsAreRead) {
    const auto folder = platform.userFolders.applicationSupport().front().appending("Vireline");
    platform.fileSystem.put(folder.appending("preferences.json"),
                            R"({"anchorAppleDock": true, "onboardingCompleted": true})");
    AppDelegate delegate{notingPorts()};

    delegate.applicationDidFinishLaunching();

    const auto lines = log.messages();
    ASSERT_GE(lines.size(), 6U);
    EXPECT_EQ(std::vector(lines.begin(), lines.begin() + 6),
              (std::vector<std::string>{
                  "Vireline started pid=4711",
                  "> status item",
                  "> tap",
                  "anchor guard active, 0 zones",
                  "> mirror follows",
                  "mirror: 1 pinned apps from Apple's Dock",
              }));
    EXPECT_EQ(lines.back(), "> coordinator follows");
}

}
}
