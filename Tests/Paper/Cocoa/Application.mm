// The application and its loop, and the displays that it reports.
#include "Cocoa/Paper.hpp"

#include <cstdio>
#include <utility>

NSNotificationName const NSApplicationDidChangeScreenParametersNotification =
    @"NSApplicationDidChangeScreenParametersNotification";

namespace {

std::function<void()>& script() {
    static auto& whatTheUserDoes = *new std::function<void()>;
    return whatTheUserDoes;
}

std::map<unsigned, unsigned>& units() {
    static auto& byDisplay = *new std::map<unsigned, unsigned>;
    return byDisplay;
}

std::vector<std::string>& escaped() {
    static auto& all = *new std::vector<std::string>;
    return all;
}

bool& activationIsRefused() {
    static bool isRefused = false;
    return isRefused;
}

NSScreen* make(const paper::Display& display) {
    NSScreen* const screen = [[NSScreen alloc] init];
    screen.frame = display.frame;
    screen.visibleFrame = display.visible;
    screen.backingScaleFactor = display.scale;
    screen.maximumFramesPerSecond = 60;
    screen.localizedName = paper::text(display.name);
    screen.deviceDescription = @{@"NSScreenNumber" : [NSNumber numberWithLongLong:display.number]};
    return screen;
}

}

uint32_t CGDisplayUnitNumber(CGDirectDisplayID display) {
    return units()[display];
}

// Documented: the first screen is the one with the menu bar.
@implementation NSScreen

+ (NSArray*)screens {
    return [NSArray arrayWithObjects:paper::screens().data() count:paper::screens().size()];
}

@end

// Documented: the delegate is not retained, and is told of the launch from within run. Belief: no
// nib is needed. On a Mac terminate: ends the process; here it ends only the loop, so that
// everything is destroyed and leaks show.
@implementation NSApplication

+ (NSApplication*)sharedApplication {
    static NSApplication* const application = [[NSApplication alloc] init];
    return application;
}

- (BOOL)isActive {
    return self.paperIsActive;
}

- (void)yieldActivationToApplication:(NSRunningApplication*)application {
    paper::requests().push_back("yield to " + application.bundleIdentifier.paperText);
}

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy {
    self.paperPolicy = policy;
    return YES;
}

- (void)activateIgnoringOtherApps:(BOOL)ignoresOthers {
    static_cast<void>(ignoresOthers);
    if (!activationIsRefused()) {
        self.paperIsActive = YES;
        for (NSRunningApplication* const other : paper::applications())
            other.active = NO;
    }
    paper::requests().emplace_back("activate");
}

- (void)run {
    @autoreleasepool {
        NSNotification* const launched = [[NSNotification alloc] init];
        paper::guarded("applicationDidFinishLaunching",
                       [&] { [self.delegate applicationDidFinishLaunching:launched]; });
        paper::drain();
    }
    // What the launch left behind is gone by the first event.
    @autoreleasepool {
        if (const auto user = std::exchange(script(), nullptr))
            user();
    }
}

- (void)terminate:(id)sender {
    static_cast<void>(sender);
    self.paperIsTerminated = YES;
}

@end

namespace paper {

void setScript(std::function<void()> whatTheUserDoes) {
    script() = std::move(whatTheUserDoes);
}

std::vector<NSScreen*>& screens() {
    static auto& all = *new std::vector<NSScreen*>;
    return all;
}

void plug(const std::vector<Display>& displays) {
    @autoreleasepool {
        screens().clear();
        for (const Display& display : displays) {
            units()[display.number] = display.unit;
            screens().push_back(make(display));
        }
        [NSNotificationCenter.defaultCenter
            paperPost:NSApplicationDidChangeScreenParametersNotification
             userInfo:nil];
        drain();
    }
}

void refuseActivation(bool refuses) {
    activationIsRefused() = refuses;
}

void reopen() {
    @autoreleasepool {
        NSApplication* const application = NSApplication.sharedApplication;
        const id<NSApplicationDelegate> delegate = application.delegate;
        guarded("reopen", [&] {
            if ([delegate respondsToSelector:@selector(applicationShouldHandleReopen:
                                                                   hasVisibleWindows:)])
                [delegate applicationShouldHandleReopen:application hasVisibleWindows:NO];
        });
        drain();
    }
}

void noteEscaped(const std::string& where, NSException* exception) {
    const std::string why = exception == nil ? "" : ": " + exception.reason.paperText;
    escaped().push_back(where + why);
}

const std::vector<std::string>& escapedExceptions() {
    return escaped();
}

std::vector<std::string> leftovers() {
    std::vector<std::string> left;
    for (NSWindow* const window : orderedWindows())
        left.push_back("window " + window.title.paperText);
    for (NSWindow* const window : closedWindows())
        left.push_back("closed window " + window.title.paperText);
    left.insert(left.end(), statusItems().size(), "status item");
    left.insert(left.end(), eventMonitors().size(), "event monitor");
    left.insert(left.end(), displayLinks().size(), "display link");
    left.insert(left.end(), pendingTimers(), "timer");
    left.insert(left.end(), eventTaps(), "event tap or display callback");
    left.insert(left.end(), fileWatches(), "file watch");
    NSNotificationCenter* const workspace = NSWorkspace.sharedWorkspace.notificationCenter;
    left.insert(left.end(), NSNotificationCenter.defaultCenter.paperObservers, "observer");
    left.insert(left.end(), workspace.paperObservers, "observer of the workspace");
    left.insert(left.end(), NSDistributedNotificationCenter.defaultCenter.paperObservers,
                "observer of other programs");
    return left;
}

}
