#pragma once

#import <AppKit/NSEvent.h>
#import <AppKit/NSMenu.h>
#import <AppKit/NSResponder.h>
#import <AppKit/NSRunningApplication.h>

NS_ASSUME_NONNULL_BEGIN

@class NSApplication;

@protocol NSApplicationDelegate <NSObject>
@optional
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)app;
- (BOOL)applicationShouldHandleReopen:(NSApplication*)sender hasVisibleWindows:(BOOL)flag;
@end

@interface NSApplication : NSResponder
@property (class, readonly, strong) __kindof NSApplication* sharedApplication;
@property (readonly, getter=isActive) BOOL active;
@property (nullable, weak) id<NSApplicationDelegate> delegate;
@property (nullable, strong) NSMenu* mainMenu;
@property (nullable, readonly, strong) NSEvent* currentEvent;
- (void)activateIgnoringOtherApps:(BOOL)flag API_DEPRECATED("", macos(10.0, 14.0));
- (void)yieldActivationToApplication:(NSRunningApplication*)application
    API_AVAILABLE(macos(14.0));
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
- (void)run;
- (void)terminate:(nullable id)sender;
@end

APPKIT_EXTERN NSNotificationName const NSApplicationDidChangeScreenParametersNotification;

NS_ASSUME_NONNULL_END
