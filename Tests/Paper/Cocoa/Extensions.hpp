/// Additions to the classes that Apple declares: the state that tests set and read, and what one
/// paper class needs from another. All these names begin with "paper", except properties that Apple
/// declares as read-only.
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
/// Tells the view and its subviews that the window's scale or colours have changed.
- (void)paperBackingChanged;
/// Makes the view and its subviews update the layers that need it.
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
/// It is behind the windows of the frontmost program.
@property BOOL paperIsBehind;
- (BOOL)paperIsTitled;
@end

@interface NSMenuItem ()
@property SEL paperAction;
@property(copy) NSString* paperKeyEquivalent;
@property BOOL paperIsSeparator;
@end

@interface NSMenu ()
/// It is open, and was not told to close.
@property(readonly) BOOL paperIsTracking;
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
/// Sends its action, as if it had been used.
- (void)paperAct;
@end

@interface NSButton ()
@property(copy) NSString* paperTitle;
@end

@interface NSTextField ()
@property BOOL paperWraps;
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

/// Sends a message without a result, such as a target's action.
void send(id receiver, SEL selector, id argument);

[[nodiscard]] bool contains(NSRect rect, NSPoint point);
/// Number of the user's current desktop; initially 0.
[[nodiscard]] NSInteger currentSpace();
/// Whether another program's window covers all docks at this point.
[[nodiscard]] bool isCovered(NSPoint point);
[[nodiscard]] double overlap(NSRect one, NSRect other);

// Lists maintained by the paper classes.
[[nodiscard]] std::vector<NSScreen*>& screens();
[[nodiscard]] std::vector<CADisplayLink*>& displayLinks();
[[nodiscard]] std::vector<NSStatusItem*>& statusItems();
[[nodiscard]] std::vector<id>& eventMonitors();
[[nodiscard]] std::vector<NSRunningApplication*>& installedApplications();
/// The windows on screen, frontmost first. They are retained by the window server.
[[nodiscard]] std::vector<NSWindow*>& orderedWindows();
/// Windows that are not on screen but still referenced.
[[nodiscard]] std::vector<NSWindow*> closedWindows();
[[nodiscard]] std::vector<NSRunningApplication*>& applications();

inline constexpr double never = 1e18;
inline constexpr double frameInterval = 1.0 / 60;

/// When the next display link or animation step is due, or `never`.
[[nodiscard]] double nextFrame();
/// Serves those that are due now.
void serveFrame();
[[nodiscard]] double nextAnimationStep();
void stepAnimations();

/// Reports file events to the dispatch sources.
void serveSources();

[[nodiscard]] bool standsStill();
/// Called for the run loop of any thread.
void sourceAdded(CFRunLoopRef loop);
void sourceRemoved(CFRunLoopRef loop);
/// Runs `body` on the thread that serves the loop, and waits for it. Returns false if that does not
/// happen.
[[nodiscard]] bool performOn(CFRunLoopRef loop, const std::function<void()>& body);

/// Runs one queued block of each background queue that is not held.
void runBackgroundQueues();

}
