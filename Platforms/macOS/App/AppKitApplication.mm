#include "App/AppKitApplication.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Translation/StandardActions.hpp"

#include <unistd.h>

#include <string>
#include <utility>

/// Reports when the application has finished launching, and when the user opens it again.
@interface VirelineApplicationDelegate : NSObject <NSApplicationDelegate>
- (instancetype)initWithLaunch:(std::function<void()>)onFinishedLaunching
                        reopen:(std::function<void()>)onReopened;
@end

@implementation VirelineApplicationDelegate {
    std::function<void()> _onFinishedLaunching;
    std::function<void()> _onReopened;
}

- (instancetype)initWithLaunch:(std::function<void()>)onFinishedLaunching
                        reopen:(std::function<void()>)onReopened {
    self = [super init];
    if (self == nil)
        return nil;
    _onFinishedLaunching = std::move(onFinishedLaunching);
    _onReopened = std::move(onReopened);
    return self;
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
    _onFinishedLaunching();
}

/// There is no state to restore, but without this method the system logs a warning at each start.
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application {
    return YES;
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)hasWindows {
    _onReopened();
    return NO;
}

@end

namespace vireline::macos {
namespace {

NSMenuItem* makeItem(const MenuSeparator&) {
    return [NSMenuItem separatorItem];
}

NSMenuItem* makeItem(const MainMenuCommand& command) {
    const SEL action = NSSelectorFromString(toNSString(StandardActions::selector(command.action)));
    return [[NSMenuItem alloc] initWithTitle:toNSString(command.title)
                                      action:action
                               keyEquivalent:toNSString(std::string(1, command.keyEquivalent))];
}

NSMenuItem* makeItem(const MainMenuSubmenu& submenu) {
    NSMenu* menu = [[NSMenu alloc] initWithTitle:toNSString(submenu.title)];
    for (const auto& entry : submenu.entries)
        [menu addItem:std::visit([](const auto& kind) { return makeItem(kind); }, entry)];
    NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:@"" action:nil keyEquivalent:@""];
    item.submenu = menu;
    return item;
}

}

void AppKitApplication::becomeAccessory() {
    attempt("setActivationPolicy", [] {
        [NSApplication.sharedApplication
            setActivationPolicy:NSApplicationActivationPolicyAccessory];
    });
}

void AppKitApplication::installMainMenu(const MainMenu& menu) {
    attempt("setMainMenu", [&] {
        NSMenu* bar = [[NSMenu alloc] initWithTitle:@""];
        for (const MainMenuSubmenu& submenu : menu.submenus)
            [bar addItem:makeItem(submenu)];
        NSApplication.sharedApplication.mainMenu = bar;
    });
}

int AppKitApplication::run(std::function<void()> onFinishedLaunching) {
    delegate_ = [[VirelineApplicationDelegate alloc] initWithLaunch:std::move(onFinishedLaunching)
                                                             reopen:[this] { reopened_.notify(); }];
    return attemptOr(1, "run", [this] {
        NSApplication.sharedApplication.delegate = delegate_;
        [NSApplication.sharedApplication run];
        return 0;
    });
}

void AppKitApplication::terminate() {
    attempt("terminate", [] { [NSApplication.sharedApplication terminate:nil]; });
}

std::int64_t AppKitApplication::processIdentifier() const {
    return attemptOr(std::int64_t{::getpid()}, "processIdentifier",
                     []() -> std::int64_t { return NSProcessInfo.processInfo.processIdentifier; });
}

Subscription AppKitApplication::observeSecondStart(std::function<void()> handler) {
    return reopened_.add(std::move(handler));
}

}
