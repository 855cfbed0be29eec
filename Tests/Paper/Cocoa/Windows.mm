// Windows: frames, screens and scales, order, and animated frames.
#include "Cocoa/Paper.hpp"

#include <algorithm>

NSNotificationName const NSWindowWillCloseNotification = @"NSWindowWillCloseNotification";

namespace {

constexpr double titleBarHeight = 28;

std::vector<__weak NSWindow*>& allWindows() {
    static auto& all = *new std::vector<__weak NSWindow*>;
    return all;
}

NSWindow* keyWindow() {
    for (NSWindow* const window : paper::orderedWindows())
        if (window.paperIsKey)
            return window;
    return nil;
}

}

// Documented: constrained frames keep a titled window's bar below the menu bar; a window's screen
// is the one that it overlaps most; close releases a window only if releasedWhenClosed; order
// within a level. Belief: its accessibility title, once set, is read instead of its title; a
// window on screen is retained by the window server; titled windows have a bar of 28 points.
@implementation NSWindow {
    NSView* _content;
    NSRect _frame;
    BOOL _wasClosed;
    NSWindowLevel _level;
}
@synthesize accessibilityElement, accessibilityRole, accessibilityLabel, accessibilityTitle,
    accessibilityValue, accessibilityFrame, accessibilityParent, accessibilityChildren;

- (instancetype)initWithContentRect:(NSRect)content
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)defers {
    static_cast<void>(backing);
    static_cast<void>(defers);
    self = [super init];
    _frame = content;
    self.paperStyle = style;
    if ([self paperIsTitled])
        _frame.size.height += titleBarHeight;
    self.releasedWhenClosed = YES;
    self.opaque = YES;
    self.hasShadow = YES;
    self.movable = YES;
    self.canHide = YES;
    static NSInteger number = 100;
    self.windowNumber = ++number;
    self.paperSpace = paper::currentSpace();
    self.contentView = [[NSView alloc] initWithFrame:{{0, 0}, content.size}];
    allWindows().push_back(self);
    return self;
}

- (void)dealloc {
    [_content paperMoveToWindow:nil];
    std::erase_if(allWindows(), [](NSWindow* window) { return window == nil; });
}

- (BOOL)paperIsTitled {
    return (self.paperStyle & NSWindowStyleMaskTitled) != 0;
}

- (NSSize)paperContentSize {
    return {_frame.size.width, _frame.size.height - ([self paperIsTitled] ? titleBarHeight : 0)};
}

- (NSRect)frame {
    return _frame;
}

- (void)setFrame:(NSRect)frame {
    [self setFrame:frame display:YES];
}

- (void)setFrame:(NSRect)frame display:(BOOL)displays {
    static_cast<void>(displays);
    const CGFloat scale = self.backingScaleFactor;
    _frame = [self constrainFrameRect:frame toScreen:self.screen];
    _content.frame = {{0, 0}, self.paperContentSize};
    if (scale != self.backingScaleFactor)
        [_content paperBackingChanged];
}

- (NSView*)contentView {
    return _content;
}

- (void)setContentView:(NSView*)view {
    [_content paperMoveToWindow:nil];
    _content = view;
    view.frame = {{0, 0}, self.paperContentSize};
    [view paperMoveToWindow:self];
    view.needsDisplay = YES;
}

- (NSScreen*)screen {
    NSScreen* best = nil;
    double most = 0;
    for (NSScreen* const screen : paper::screens()) {
        const double shared = paper::overlap(screen.frame, _frame);
        if (shared > most) {
            most = shared;
            best = screen;
        }
    }
    return best;
}

- (CGFloat)backingScaleFactor {
    NSScreen* const screen = self.screen;
    return screen == nil ? 1 : screen.backingScaleFactor;
}

- (BOOL)canBecomeKeyWindow {
    return [self paperIsTitled];
}

- (BOOL)canBecomeMainWindow {
    return [self paperIsTitled];
}

- (void)center {
    if (paper::screens().empty())
        return;
    const NSRect room = paper::screens().front().visibleFrame;
    _frame.origin = {room.origin.x + (room.size.width - _frame.size.width) / 2,
                     room.origin.y + (room.size.height - _frame.size.height) / 2};
}

- (NSRect)constrainFrameRect:(NSRect)frame toScreen:(NSScreen*)screen {
    if (screen == nil)
        return frame;
    const NSRect room = screen.visibleFrame;
    frame.origin.y = std::min(frame.origin.y, room.origin.y + room.size.height - frame.size.height);
    return frame;
}

- (NSPoint)convertPointFromScreen:(NSPoint)point {
    return {point.x - _frame.origin.x, point.y - _frame.origin.y};
}

- (NSWindowLevel)level {
    return _level;
}

- (void)setLevel:(NSWindowLevel)level {
    _level = level;
    if (self.visible)
        [self orderFrontRegardless];
}

- (void)orderFrontRegardless {
    NSWindow* const me = self;
    auto& order = paper::orderedWindows();
    std::erase(order, me);
    const auto behind =
        std::ranges::find_if(order, [&](NSWindow* window) { return window.level <= me.level; });
    order.insert(behind, me);
    self.paperIsBehind = NO;
    self.visible = YES;
    if ((self.collectionBehavior & NSWindowCollectionBehaviorMoveToActiveSpace) != 0)
        self.paperSpace = paper::currentSpace();
}

- (void)orderOut:(id)sender {
    static_cast<void>(sender);
    NSWindow* const me = self;
    self.visible = NO;
    self.paperIsKey = NO;
    std::erase(paper::orderedWindows(), me);
}

- (void)makeKeyAndOrderFront:(id)sender {
    static_cast<void>(sender);
    self.miniaturized = NO;
    [self orderFrontRegardless];
    // Documented: a window of an inactive program is ordered behind those of the active one.
    self.paperIsBehind = !NSApplication.sharedApplication.paperIsActive;
    if (!self.canBecomeKeyWindow)
        return;
    keyWindow().paperIsKey = NO;
    self.paperIsKey = YES;
}

- (void)close {
    NSWindow* const me = self;
    if (self.visible || self.miniaturized)
        [NSNotificationCenter.defaultCenter paperPost:NSWindowWillCloseNotification userInfo:nil];
    [self orderOut:nil];
    const BOOL ends = !_wasClosed && self.releasedWhenClosed;
    _wasClosed = YES;
    if (ends)
        CFRelease((__bridge CFTypeRef)me);
}

@end

// Documented: hides with its program unless told otherwise, and does not make it active where it is
// a non-activating one. Belief: it needs no more for clicks to leave the focus where it is.
@implementation NSPanel
@end

// An animated frame. Belief: AppKit steps it on the main thread at the display's rate, easing in
// and out; a new animation of the frame replaces the previous one, whose completion handler is then
// called.
@interface PaperAnimation : NSObject
@property(weak) NSWindow* window;
@property NSRect from;
@property NSRect to;
@property double begin;
@property double duration;
@property(copy) void (^onEnd)(void);
@end

@implementation PaperAnimation

- (void)step {
    const double passed = std::clamp((paper::now() - self.begin) / self.duration, 0.0, 1.0);
    const double eased = passed * passed * (3 - 2 * passed);
    const auto between = [&](double from, double to) { return from + (to - from) * eased; };
    const NSRect from = self.from;
    const NSRect to = self.to;
    [self.window
        setFrame:{{between(from.origin.x, to.origin.x), between(from.origin.y, to.origin.y)},
                  {between(from.size.width, to.size.width),
                   between(from.size.height, to.size.height)}}
         display:YES];
}

- (BOOL)isOver {
    return paper::now() >= self.begin + self.duration - 1e-9;
}

- (void)end {
    void (^const onEnd)(void) = self.onEnd;
    self.onEnd = nil;
    if (onEnd != nil)
        paper::guarded("animation's end", [&] { onEnd(); });
}

@end

namespace {

struct Animations {
    std::vector<PaperAnimation*> running;
    NSAnimationContext* context = nil;
    std::vector<PaperAnimation*> grouped;
};

Animations& animations() {
    static auto& only = *new Animations;
    return only;
}

}

// Documented: a stand-in for the window, through which a change becomes an animation as the current
// group says.
@interface PaperAnimator : NSObject
@property(strong) NSWindow* window;
@end

@implementation PaperAnimator

- (void)setFrame:(NSRect)frame display:(BOOL)displays {
    NSWindow* const window = self.window;
    std::erase_if(animations().running, [&](PaperAnimation* running) {
        if (running.window != window)
            return false;
        [running end];
        return true;
    });
    NSAnimationContext* const context = animations().context;
    if (context == nil || context.duration <= 0)
        return [window setFrame:frame display:displays];
    PaperAnimation* const animation = [[PaperAnimation alloc] init];
    animation.window = window;
    animation.from = window.frame;
    animation.to = frame;
    animation.begin = paper::now();
    animation.duration = context.duration;
    animations().grouped.push_back(animation);
}

@end

// Belief: that it is another one at each call here makes no difference.
@implementation NSWindow (Animation)

- (instancetype)animator {
    PaperAnimator* const animator = [[PaperAnimator alloc] init];
    animator.window = self;
    return static_cast<id>(animator);
}

@end

// Documented: a quarter of a second unless the group sets a duration; the completion handler is
// called on the main thread, in the next turn if nothing was animated.
@implementation NSAnimationContext

+ (void)runAnimationGroup:(void (^)(NSAnimationContext*))changes
        completionHandler:(void (^)(void))onEnd {
    NSAnimationContext* const outer = animations().context;
    NSAnimationContext* const context = [[NSAnimationContext alloc] init];
    context.duration = 0.25;
    animations().context = context;
    animations().grouped.clear();
    changes(context);
    animations().context = outer;
    if (animations().grouped.empty() && onEnd != nil)
        [NSRunLoop.mainRunLoop performInModes:@[ NSRunLoopCommonModes ] block:onEnd];
    for (PaperAnimation* const animation : animations().grouped) {
        animation.onEnd = onEnd;
        animations().running.push_back(animation);
    }
    animations().grouped.clear();
}

@end

namespace paper {

double nextAnimationStep() {
    double next = never;
    for (PaperAnimation* const animation : animations().running)
        next = std::min({next, now() + frameInterval, animation.begin + animation.duration});
    return next;
}

void stepAnimations() {
    const auto running = animations().running;
    for (PaperAnimation* const animation : running) {
        [animation step];
        if (![animation isOver])
            continue;
        std::erase(animations().running, animation);
        [animation end];
    }
}

std::vector<NSWindow*>& orderedWindows() {
    static auto& order = *new std::vector<NSWindow*>;
    return order;
}

NSWindow* windowTitled(const std::string& beginning) {
    for (NSWindow* const window : allWindows())
        if (window != nil && window.title != nil && window.title.paperText.starts_with(beginning))
            return window;
    return nil;
}

std::vector<NSWindow*> closedWindows() {
    std::vector<NSWindow*> closed;
    for (NSWindow* const window : allWindows())
        if (window != nil && !window.visible)
            closed.push_back(window);
    return closed;
}

void hideOthers() {
    const auto windows = orderedWindows();
    for (NSWindow* const window : windows)
        if (window.canHide)
            [window orderOut:nil];
}

void display() {
    const auto windows = orderedWindows();
    for (NSWindow* const window : windows)
        [window.contentView paperDisplay];
}

}
