/// What the paper classes have beyond what Apple declares: the state that tests set and read, and
/// what one paper class asks another. Every such name begins with "paper", but for properties that
/// Apple declares as read-only.
#pragma once

#import <AppKit/AppKit.h>
#import <ApplicationServices/ApplicationServices.h>
#import <QuartzCore/QuartzCore.h>
#import <ServiceManagement/ServiceManagement.h>

#include <functional>
#include <string>
#include <vector>

@interface NSString ()
- (const std::string&)paperText;
@end

@interface NSNumber ()
+ (NSNumber*)numberWithLongLong:(long long)value;
+ (NSNumber*)numberWithDouble:(double)value;
@property(readonly) BOOL paperIsBoolean;
@property(readonly) BOOL paperIsReal;
@end

@interface NSError ()
@property(readwrite) NSInteger code;
@end

@interface NSException ()
@property(readwrite, copy) NSExceptionName name;
@property(readwrite, copy) NSString* reason;
+ (void)paperRaise:(NSExceptionName)name reason:(NSString*)reason __attribute__((noreturn));
@end

@interface NSNotification ()
@property(readwrite, copy) NSDictionary* userInfo;
@end

@interface NSNotificationCenter ()
- (void)paperPost:(NSNotificationName)name userInfo:(NSDictionary*)userInfo;
- (NSUInteger)paperObservers;
@end

@interface NSTimer ()
@property double paperDue;
@property(readonly) BOOL paperRepeats;
- (void)paperSchedule;
- (void)paperFire;
@end

@interface NSScreen ()
@property(readwrite) NSRect frame;
@property(readwrite) NSRect visibleFrame;
@property(readwrite, copy) NSDictionary* deviceDescription;
@property(readwrite) CGFloat backingScaleFactor;
@property(readwrite, copy) NSString* localizedName;
@property(readwrite) NSInteger maximumFramesPerSecond;
@end

@interface NSRunningApplication ()
@property(readwrite, getter=isTerminated) BOOL terminated;
@property(readwrite, getter=isActive) BOOL active;
@property(readwrite) NSApplicationActivationPolicy activationPolicy;
@property(readwrite, copy) NSString* localizedName;
@property(readwrite, copy) NSString* bundleIdentifier;
@property(readwrite, copy) NSURL* bundleURL;
@property(readwrite) int processIdentifier;
@end

@interface NSEvent ()
@property(readwrite) NSEventType type;
@property(readwrite) NSEventModifierFlags modifierFlags;
@property(readwrite) NSTimeInterval timestamp;
@property(readwrite) NSPoint locationInWindow;
@property(readwrite) unsigned short keyCode;
@end

@interface NSView ()
@property BOOL autoresizesSubviews;
- (NSPoint)paperPointInWindow:(NSPoint)point;
- (NSArray<NSTrackingArea*>*)paperTrackingAreas;
- (NSArray<NSPasteboardType>*)paperDraggedTypes;
- (NSView*)paperSuperview;
- (void)paperMoveToWindow:(NSWindow*)window;
/// Tells it and all below it that the scale or the colours of its window are others.
- (void)paperBackingChanged;
/// Has it and all below it update the layers that need it.
- (void)paperDisplay;
@end

@interface NSTrackingArea ()
@property NSTrackingAreaOptions paperOptions;
@property(unsafe_unretained) id paperOwner;
@property BOOL paperIsInside;
@end

@interface NSWindow ()
@property(readwrite) NSRect frame;
@property(readwrite, getter=isVisible) BOOL visible;
@property(readwrite, getter=isMiniaturized) BOOL miniaturized;
@property NSWindowStyleMask paperStyle;
@property(readwrite) NSInteger windowNumber;
@property NSInteger paperSpace;
@property BOOL paperIsKey;
/// Lies behind the windows of the program in front.
@property BOOL paperIsBehind;
- (BOOL)paperIsTitled;
@end

@interface NSMenuItem ()
@property SEL paperAction;
@property(copy) NSString* paperKeyEquivalent;
@property BOOL paperIsSeparator;
@end

@interface NSMenu ()
- (NSArray<NSMenuItem*>*)paperItems;
- (void)paperUpdate;
- (void)paperChoose:(NSMenuItem*)item;
@end

@interface NSStatusItem ()
@property(readwrite, strong) NSStatusBarButton* button;
@end

@interface NSColor ()
@property(copy) NSString* paperName;
@end

@interface NSFont ()
@property CGFloat paperSize;
@end

@interface NSImage ()
@property(copy) NSString* paperName;
@property BOOL paperIsTemplate;
@property(copy) BOOL (^paperDraw)(NSRect);
@end

@interface NSControl ()
/// Sends its action, as it does when it was used.
- (void)paperAct;
@end

@interface NSButton ()
@property(copy) NSString* paperTitle;
@end

@interface NSSegmentedControl ()
@property(copy) NSArray<NSString*>* paperLabels;
@end

@interface NSPasteboard ()
@property(copy) NSArray<NSURL*>* paperURLs;
@end

@interface NSApplication ()
@property(readwrite, strong) NSEvent* currentEvent;
@property NSApplicationActivationPolicy paperPolicy;
@property BOOL paperIsTerminated;
@property BOOL paperIsActive;

@end

@interface SMAppService ()
@property(readwrite) SMAppServiceStatus status;
@end

namespace paper {

[[nodiscard]] NSString* text(const std::string& text);

/// Sends a message without a result, as a target gets its action.
void send(id receiver, SEL selector, id argument);

[[nodiscard]] bool contains(NSRect rect, NSPoint point);
/// Of the desktops that the user has; 0 at first.
[[nodiscard]] NSInteger currentSpace();
/// Another program's window lies there above all docks.
[[nodiscard]] bool isCovered(NSPoint point);
[[nodiscard]] double overlap(NSRect one, NSRect other);

// Kept by the paper classes of which there is a list.
[[nodiscard]] std::vector<NSScreen*>& screens();
[[nodiscard]] std::vector<CADisplayLink*>& displayLinks();
[[nodiscard]] std::vector<NSStatusItem*>& statusItems();
[[nodiscard]] std::vector<id>& eventMonitors();
[[nodiscard]] std::vector<NSRunningApplication*>& installedApplications();
/// On screen, the one in front first. The window server holds them.
[[nodiscard]] std::vector<NSWindow*>& orderedWindows();
/// Not on screen, but still held by somebody.
[[nodiscard]] std::vector<NSWindow*> closedWindows();
[[nodiscard]] std::vector<NSRunningApplication*>& applications();

inline constexpr double never = 1e18;
inline constexpr double frameInterval = 1.0 / 60;

/// When the next display link or step of a window's animation is due, or `never`.
[[nodiscard]] double nextFrame();
/// Serves those that are due now.
void serveFrame();
[[nodiscard]] double nextAnimationStep();
void stepAnimations();

/// Tells the dispatch sources what happened to their files.
void serveSources();

[[nodiscard]] bool standsStill();
/// Of a run loop of any thread.
void sourceAdded(CFRunLoopRef loop);
void sourceRemoved(CFRunLoopRef loop);
/// Runs `body` where the loop is served, and waits for it. False if that does not happen.
[[nodiscard]] bool performOn(CFRunLoopRef loop, const std::function<void()>& body);

/// Runs one queued block of each background queue that is not held up.
void runBackgroundQueues();

}
