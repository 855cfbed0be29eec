#pragma once

#import <AppKit/NSImage.h>
#import <AppKit/NSRunningApplication.h>

NS_ASSUME_NONNULL_BEGIN

API_AVAILABLE(macos(10.15))
@interface NSWorkspaceOpenConfiguration : NSObject <NSCopying>
@property BOOL activates;
+ (instancetype)configuration;
@end

@interface NSWorkspace : NSObject
@property (class, readonly, strong) NSWorkspace* sharedWorkspace;
@property (readonly, strong) NSNotificationCenter* notificationCenter;
@property (readonly, copy) NSArray<NSRunningApplication*>* runningApplications;
@property (nullable, readonly, strong) NSRunningApplication* frontmostApplication
    API_AVAILABLE(macos(10.7));
@property (readonly) BOOL accessibilityDisplayShouldReduceMotion API_AVAILABLE(macos(10.12));
- (BOOL)openURL:(NSURL*)url;
- (void)openApplicationAtURL:(NSURL*)applicationURL
               configuration:(NSWorkspaceOpenConfiguration*)configuration
           completionHandler:(nullable void (^)(NSRunningApplication* _Nullable app,
                                                NSError* _Nullable error))completionHandler
    API_AVAILABLE(macos(10.15));
- (void)activateFileViewerSelectingURLs:(NSArray<NSURL*>*)fileURLs;
- (NSImage*)iconForFile:(NSString*)fullPath;
- (nullable NSURL*)URLForApplicationWithBundleIdentifier:(NSString*)bundleIdentifier;
@end

/// Key of the application in the user information of notifications.
APPKIT_EXTERN NSString* const NSWorkspaceApplicationKey;

APPKIT_EXTERN NSNotificationName const NSWorkspaceWillLaunchApplicationNotification;
APPKIT_EXTERN NSNotificationName const NSWorkspaceDidLaunchApplicationNotification;
APPKIT_EXTERN NSNotificationName const NSWorkspaceDidTerminateApplicationNotification;
APPKIT_EXTERN NSNotificationName const NSWorkspaceDidWakeNotification;
APPKIT_EXTERN NSNotificationName const NSWorkspaceScreensDidSleepNotification;
APPKIT_EXTERN NSNotificationName const NSWorkspaceScreensDidWakeNotification;
APPKIT_EXTERN NSNotificationName const NSWorkspaceSessionDidBecomeActiveNotification;
APPKIT_EXTERN NSNotificationName const NSWorkspaceSessionDidResignActiveNotification;

NS_ASSUME_NONNULL_END
