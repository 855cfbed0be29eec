#include "Applications/WorkspaceApplications.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Bridge/Notifications.hpp"
#include "Translation/ProcessFacts.hpp"

#import <AppKit/AppKit.h>

#include <utility>

namespace vireline::macos {
namespace {

static_assert(ProcessFacts::regularPolicy == NSApplicationActivationPolicyRegular);
static_assert(ProcessFacts::accessoryPolicy == NSApplicationActivationPolicyAccessory);

RunningApplication describe(NSRunningApplication* app) {
    return {.bundleID = toOptionalText(app.bundleIdentifier),
            .bundleURL = toFileURL(app.bundleURL),
            .localizedName = toOptionalText(app.localizedName),
            .activationPolicy = ProcessFacts::activationPolicy(app.activationPolicy),
            .processIdentifier = ProcessFacts::processIdentifier(app.processIdentifier),
            .isActive = static_cast<bool>(app.active)};
}

std::vector<RunningApplication> describe(NSArray<NSRunningApplication*>* apps) {
    std::vector<RunningApplication> described;
    described.reserve(apps.count);
    for (NSRunningApplication* app in apps) {
        // An app that has just exited may still be listed.
        if (!app.terminated)
            described.push_back(describe(app));
    }
    return described;
}

std::optional<RunningApplication> concerned(NSNotification* notification) {
    const id app = notification.userInfo[NSWorkspaceApplicationKey];
    if (![app isKindOfClass:NSRunningApplication.class])
        return std::nullopt;
    return describe(static_cast<NSRunningApplication*>(app));
}

/// The running app; nil if it has exited.
NSRunningApplication* find(const RunningApplication& app) {
    return [NSRunningApplication runningApplicationWithProcessIdentifier:app.processIdentifier];
}

Subscription observeWorkspace(NSNotificationName name, RunningApplications::Handler handler) {
    return observe(
        workspaceCenter(), name, [handler = std::move(handler)](NSNotification* notification) {
            handler(attemptOr(std::optional<RunningApplication>{}, "NSWorkspaceApplicationKey",
                              [&] { return concerned(notification); }));
        });
}

}

std::vector<RunningApplication> WorkspaceApplications::running() const {
    return attemptOr(std::vector<RunningApplication>{}, "runningApplications",
                     [] { return describe(NSWorkspace.sharedWorkspace.runningApplications); });
}

std::vector<RunningApplication>
WorkspaceApplications::instances(const std::string& bundleID) const {
    return attemptOr(std::vector<RunningApplication>{}, "runningApplicationsWithBundleIdentifier",
                     [&] {
                         return describe([NSRunningApplication
                             runningApplicationsWithBundleIdentifier:toNSString(bundleID)]);
                     });
}

void WorkspaceApplications::hide(const RunningApplication& app) {
    attempt("hide", [&] { [find(app) hide]; });
}

void WorkspaceApplications::terminate(const RunningApplication& app) {
    attempt("terminate", [&] { [find(app) terminate]; });
}

Subscription WorkspaceApplications::observeWillLaunch(Handler handler) {
    return observeWorkspace(NSWorkspaceWillLaunchApplicationNotification, std::move(handler));
}

Subscription WorkspaceApplications::observeDidLaunch(Handler handler) {
    return observeWorkspace(NSWorkspaceDidLaunchApplicationNotification, std::move(handler));
}

Subscription WorkspaceApplications::observeDidTerminate(Handler handler) {
    return observeWorkspace(NSWorkspaceDidTerminateApplicationNotification, std::move(handler));
}

}
