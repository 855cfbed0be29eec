// Applications, the workspace and the login item.
#include "Cocoa/Paper.hpp"

#include <algorithm>

NSString* const NSWorkspaceApplicationKey = @"NSWorkspaceApplicationKey";
NSNotificationName const NSWorkspaceWillLaunchApplicationNotification =
    @"NSWorkspaceWillLaunchApplicationNotification";
NSNotificationName const NSWorkspaceDidLaunchApplicationNotification =
    @"NSWorkspaceDidLaunchApplicationNotification";
NSNotificationName const NSWorkspaceDidTerminateApplicationNotification =
    @"NSWorkspaceDidTerminateApplicationNotification";
NSNotificationName const NSWorkspaceDidWakeNotification = @"NSWorkspaceDidWakeNotification";
NSNotificationName const NSWorkspaceScreensDidSleepNotification =
    @"NSWorkspaceScreensDidSleepNotification";
NSNotificationName const NSWorkspaceScreensDidWakeNotification =
    @"NSWorkspaceScreensDidWakeNotification";
NSNotificationName const NSWorkspaceSessionDidBecomeActiveNotification =
    @"NSWorkspaceSessionDidBecomeActiveNotification";
NSNotificationName const NSWorkspaceSessionDidResignActiveNotification =
    @"NSWorkspaceSessionDidResignActiveNotification";

namespace {

NSArray* matching(const std::vector<NSRunningApplication*>& apps,
                  const std::function<bool(NSRunningApplication*)>& isMeant) {
    NSMutableArray* const found = [NSMutableArray array];
    for (NSRunningApplication* const app : apps)
        if (isMeant(app))
            [found addObject:app];
    return found;
}

bool& motionIsReduced() {
    static bool isReduced = false;
    return isReduced;
}

int& loginItemRefusal() {
    static int code = 0;
    return code;
}

bool refused(NSError** error) {
    if (loginItemRefusal() == 0)
        return false;
    *error = [NSError errorWithDomain:NSPOSIXErrorDomain code:loginItemRefusal() userInfo:nil];
    return true;
}

NSRunningApplication* make(const paper::App& app) {
    NSRunningApplication* const made = [[NSRunningApplication alloc] init];
    if (!app.bundleID.empty())
        made.bundleIdentifier = paper::text(app.bundleID);
    made.localizedName = paper::text(app.name);
    made.processIdentifier = app.processIdentifier;
    if (!app.path.empty())
        made.bundleURL = [NSURL fileURLWithPath:paper::text(app.path)];
    return made;
}

/// Makes the workspace find the app from now on; repeated calls have no effect.
void know(NSRunningApplication* app) {
    auto& known = paper::installedApplications();
    std::erase_if(known, [&](NSRunningApplication* other) {
        return [other.bundleIdentifier isEqual:app.bundleIdentifier];
    });
    known.push_back(app);
}

/// Removes an app that has ended under the same process ID.
void list(NSRunningApplication* app) {
    std::erase_if(paper::applications(), [&](NSRunningApplication* other) {
        return other.terminated && other.processIdentifier == app.processIdentifier;
    });
    paper::applications().push_back(app);
}

void announce(NSNotificationName name, NSRunningApplication* app) {
    [NSWorkspace.sharedWorkspace.notificationCenter paperPost:name
                                                     userInfo:@{NSWorkspaceApplicationKey : app}];
}

}

// Documented: these methods only make requests; the program is told of the outcome by
// notifications.
@implementation NSRunningApplication

+ (NSArray*)runningApplicationsWithBundleIdentifier:(NSString*)identifier {
    return matching(paper::applications(), [&](NSRunningApplication* app) {
        return [app.bundleIdentifier isEqual:identifier];
    });
}

+ (instancetype)runningApplicationWithProcessIdentifier:(int)processIdentifier {
    return matching(paper::applications(),
                    [&](NSRunningApplication* app) {
                        return app.processIdentifier == processIdentifier;
                    })
        .firstObject;
}

// Belief: an active program may activate another one; since version 14 only after yielding.
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options {
    paper::requests().push_back("activate " + self.bundleIdentifier.paperText +
                                (options == 0 ? "" : " with options"));
    NSApplication.sharedApplication.paperIsActive = NO;
    self.active = YES;
    return YES;
}

- (BOOL)hide {
    paper::requests().push_back("hide " + self.bundleIdentifier.paperText);
    return YES;
}

- (BOOL)terminate {
    paper::requests().push_back("terminate " + self.bundleIdentifier.paperText);
    return YES;
}

@end

// Documented: activates is true by default; the program always sets it.
@implementation NSWorkspaceOpenConfiguration

+ (instancetype)configuration {
    return [[self alloc] init];
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Documented: notifications about applications come from the workspace's own centre.
@implementation NSWorkspace {
    NSNotificationCenter* _center;
}

+ (NSWorkspace*)sharedWorkspace {
    static NSWorkspace* const workspace = [[NSWorkspace alloc] init];
    return workspace;
}

- (NSNotificationCenter*)notificationCenter {
    if (_center == nil)
        _center = [[NSNotificationCenter alloc] init];
    return _center;
}

- (NSArray*)runningApplications {
    return matching(paper::applications(), [](NSRunningApplication*) { return true; });
}

- (NSRunningApplication*)frontmostApplication {
    return matching(paper::applications(), [](NSRunningApplication* app) { return app.active; })
        .firstObject;
}

- (BOOL)accessibilityDisplayShouldReduceMotion {
    return motionIsReduced();
}

- (BOOL)openURL:(NSURL*)url {
    paper::requests().push_back("open " + url.absoluteString.paperText);
    return YES;
}

- (void)openApplicationAtURL:(NSURL*)url
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(void (^)(NSRunningApplication*, NSError*))onEnd {
    static_cast<void>(onEnd);
    const std::string how = configuration.activates ? "launch " : "launch behind ";
    paper::requests().push_back(how + url.path.paperText);
}

- (void)activateFileViewerSelectingURLs:(NSArray*)urls {
    for (NSURL* url in urls)
        paper::requests().push_back("reveal " + url.path.paperText);
}

- (NSImage*)iconForFile:(NSString*)path {
    NSImage* const icon = [NSImage imageNamed:path];
    return icon;
}

- (NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)identifier {
    NSRunningApplication* const found =
        matching(paper::installedApplications(), [&](NSRunningApplication* app) {
            return [app.bundleIdentifier isEqual:identifier];
        }).firstObject;
    return found.bundleURL;
}

@end

// Documented: on failure an error is returned and the status is unchanged.
@implementation SMAppService

+ (SMAppService*)mainAppService {
    static SMAppService* const service = [[SMAppService alloc] init];
    return service;
}

- (BOOL)registerAndReturnError:(NSError**)error {
    if (refused(error))
        return NO;
    self.status = SMAppServiceStatusEnabled;
    return YES;
}

- (BOOL)unregisterAndReturnError:(NSError**)error {
    if (refused(error))
        return NO;
    self.status = SMAppServiceStatusNotRegistered;
    return YES;
}

@end

namespace paper {

std::vector<NSRunningApplication*>& applications() {
    static auto& running = *new std::vector<NSRunningApplication*>;
    return running;
}

std::vector<NSRunningApplication*>& installedApplications() {
    static auto& installed = *new std::vector<NSRunningApplication*>;
    return installed;
}

std::vector<std::string>& requests() {
    static auto& all = *new std::vector<std::string>;
    return all;
}

void install(const App& app) {
    know(make(app));
}

NSRunningApplication* run(const App& app) {
    NSRunningApplication* const made = make(app);
    list(made);
    know(made);
    return made;
}

NSRunningApplication* launch(const App& app) {
    @autoreleasepool {
        NSRunningApplication* const made = make(app);
        announce(NSWorkspaceWillLaunchApplicationNotification, made);
        list(made);
        know(made);
        announce(NSWorkspaceDidLaunchApplicationNotification, made);
        drain();
        return made;
    }
}

void quit(int processIdentifier) {
    @autoreleasepool {
        NSRunningApplication* const app =
            [NSRunningApplication runningApplicationWithProcessIdentifier:processIdentifier];
        std::erase(applications(), app);
        announce(NSWorkspaceDidTerminateApplicationNotification, app);
        drain();
    }
}

void quitButStayListed(int processIdentifier) {
    @autoreleasepool {
        NSRunningApplication* const app =
            [NSRunningApplication runningApplicationWithProcessIdentifier:processIdentifier];
        app.terminated = YES;
        announce(NSWorkspaceDidTerminateApplicationNotification, app);
        drain();
    }
}

void refuseLoginItem(int code) {
    loginItemRefusal() = code;
}

bool reducesMotion() {
    return motionIsReduced();
}

void setReducesMotion(bool reduces) {
    motionIsReduced() = reduces;
}

}
