#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory
};

typedef NSUInteger NSApplicationActivationOptions;

@interface NSRunningApplication : NSObject
@property (readonly, getter=isTerminated) BOOL terminated;
@property (readonly, getter=isActive) BOOL active;
@property (readonly) NSApplicationActivationPolicy activationPolicy;
@property (nullable, readonly, copy) NSString* localizedName;
@property (nullable, readonly, copy) NSString* bundleIdentifier;
@property (nullable, readonly, copy) NSURL* bundleURL;
@property (readonly) int processIdentifier;
+ (NSArray<NSRunningApplication*>*)runningApplicationsWithBundleIdentifier:
    (NSString*)bundleIdentifier;
+ (nullable instancetype)runningApplicationWithProcessIdentifier:(int)pid;
- (BOOL)activateWithOptions:(NSApplicationActivationOptions)options;
- (BOOL)hide;
- (BOOL)terminate;
@end

NS_ASSUME_NONNULL_END
