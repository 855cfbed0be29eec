// Views: their tree, coordinates, layers and tracking areas.
#include "Cocoa/Paper.hpp"

#include <algorithm>

// Documented: unhandled events go up the responder chain. Here they end at the view.
@implementation NSResponder

- (void)mouseDown:(NSEvent*)event {
    static_cast<void>(event);
}

- (void)mouseUp:(NSEvent*)event {
    static_cast<void>(event);
}

- (void)mouseMoved:(NSEvent*)event {
    static_cast<void>(event);
}

- (void)mouseDragged:(NSEvent*)event {
    static_cast<void>(event);
}

- (void)mouseEntered:(NSEvent*)event {
    static_cast<void>(event);
}

- (void)mouseExited:(NSEvent*)event {
    static_cast<void>(event);
}

- (void)rightMouseDown:(NSEvent*)event {
    static_cast<void>(event);
}

@end

// Documented: the owner is not retained.
@implementation NSTrackingArea

- (instancetype)initWithRect:(NSRect)rect
                     options:(NSTrackingAreaOptions)options
                       owner:(id)owner
                    userInfo:(NSDictionary*)userInfo {
    static_cast<void>(rect);
    static_cast<void>(userInfo);
    self = [super init];
    self.paperOptions = options;
    self.paperOwner = owner;
    return self;
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

namespace {

/// Documented: autoresizing of a position and a length; the flexible parts share the change evenly.
void autoresize(double& origin, double& length, double change, bool before, bool within,
                bool after) {
    const int parts = static_cast<int>(before) + static_cast<int>(within) + static_cast<int>(after);
    if (parts == 0)
        return;
    const double share = change / parts;
    if (before)
        origin += share;
    if (within)
        length += share;
}

constexpr NSAutoresizingMaskOptions minXMargin = 1;
constexpr NSAutoresizingMaskOptions maxXMargin = 4;
constexpr NSAutoresizingMaskOptions minYMargin = 8;
constexpr NSAutoresizingMaskOptions maxYMargin = 32;

NSRect autoresized(NSView* view, NSSize before, NSSize after) {
    NSRect frame = view.frame;
    const auto has = [mask = view.autoresizingMask](NSUInteger option) {
        return (mask & option) != 0;
    };
    autoresize(frame.origin.x, frame.size.width, after.width - before.width, has(minXMargin),
               has(NSViewWidthSizable), has(maxXMargin));
    autoresize(frame.origin.y, frame.size.height, after.height - before.height, has(minYMargin),
               has(NSViewHeightSizable), has(maxYMargin));
    return frame;
}

}

// Documented: a view retains its subviews, and does not retain its window; a flipped view has its
// origin at the top left; hitTest: takes a point in the superview and asks the topmost subview
// first. Belief: viewDidChangeBackingProperties is sent when a view enters a window, when its
// window's scale changes, and when it leaves.
@implementation NSView {
    __unsafe_unretained NSWindow* _window;
    __unsafe_unretained NSView* _superview;
    std::vector<NSView*> _subviews;
    std::vector<NSTrackingArea*> _areas;
    NSArray* _draggedTypes;
    NSRect _frame;
    NSPoint _boundsOrigin;
    BOOL _wantsLayer;
}
@synthesize accessibilityElement, accessibilityRole, accessibilityLabel, accessibilityTitle,
    accessibilityValue, accessibilityFrame, accessibilityParent, accessibilityChildren;

- (instancetype)init {
    return [self initWithFrame:NSZeroRect];
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super init];
    if (self == nil)
        return nil;
    _frame = frame;
    self.alphaValue = 1;
    self.autoresizesSubviews = YES;
    return self;
}

- (void)dealloc {
    for (NSView* const view : _subviews)
        view->_superview = nil;
}

- (NSWindow*)window {
    return _window;
}

- (NSView*)superview {
    return _superview;
}

- (NSView*)paperSuperview {
    return _superview;
}

- (NSRect)frame {
    return _frame;
}

- (void)setFrame:(NSRect)frame {
    const NSSize before = _frame.size;
    _frame = frame;
    if (!self.autoresizesSubviews)
        return;
    const auto subviews = _subviews;
    for (NSView* const view : subviews)
        if (view.autoresizingMask != 0)
            view.frame = autoresized(view, before, frame.size);
}

- (NSRect)bounds {
    return {_boundsOrigin, _frame.size};
}

- (void)setBounds:(NSRect)bounds {
    // Scaled bounds are not supported here.
    _boundsOrigin = bounds.origin;
}

- (BOOL)isFlipped {
    return NO;
}

- (BOOL)wantsUpdateLayer {
    return NO;
}

- (BOOL)wantsLayer {
    return _wantsLayer;
}

- (void)setWantsLayer:(BOOL)wants {
    _wantsLayer = wants;
    if (wants && self.layer == nil)
        self.layer = [self makeBackingLayer];
}

- (CALayer*)makeBackingLayer {
    return [[CALayer alloc] init];
}

- (void)updateLayer {
}

- (NSSize)intrinsicContentSize {
    return {-1, -1};
}

- (NSSize)fittingSize {
    return self.intrinsicContentSize;
}

- (void)viewDidChangeEffectiveAppearance {
}

- (void)viewDidChangeBackingProperties {
}

- (void)viewDidMoveToWindow {
}

- (NSArray*)subviews {
    return [NSArray arrayWithObjects:_subviews.data() count:_subviews.size()];
}

- (void)setSubviews:(NSArray*)views {
    std::vector<NSView*> wanted;
    for (NSView* view in views)
        wanted.push_back(view);
    const auto before = _subviews;
    for (NSView* const view : before)
        if (std::ranges::find(wanted, view) == wanted.end())
            [view removeFromSuperview];
    for (NSView* const view : wanted)
        if (view->_superview != self)
            [self addSubview:view];
    _subviews = wanted;
}

- (void)addSubview:(NSView*)view {
    [view removeFromSuperview];
    view->_superview = self;
    _subviews.push_back(view);
    [view paperMoveToWindow:_window];
    view.needsDisplay = YES;
}

- (void)removeFromSuperview {
    NSView* const me = self;
    if (_superview == nil)
        return;
    std::erase(_superview->_subviews, me);
    _superview = nil;
    [self paperMoveToWindow:nil];
}

- (void)paperMoveToWindow:(NSWindow*)window {
    if (_window == window)
        return;
    _window = window;
    [self viewDidMoveToWindow];
    [self viewDidChangeBackingProperties];
    const auto subviews = _subviews;
    for (NSView* const view : subviews)
        [view paperMoveToWindow:window];
}

- (void)paperBackingChanged {
    paper::guarded("backing properties", [&] { [self viewDidChangeBackingProperties]; });
    const auto subviews = _subviews;
    for (NSView* const view : subviews)
        [view paperBackingChanged];
}

- (void)paperDisplay {
    if (self.needsDisplay && self.wantsUpdateLayer)
        paper::guarded("updateLayer", [&] { [self updateLayer]; });
    self.needsDisplay = NO;
    const auto subviews = _subviews;
    for (NSView* const view : subviews)
        [view paperDisplay];
}

- (BOOL)paperIsTurned {
    return self.flipped != (_superview != nil && _superview.flipped);
}

- (NSPoint)paperPointInSuperview:(NSPoint)point {
    const double inside = point.y - _boundsOrigin.y;
    const double y = [self paperIsTurned] ? _frame.size.height - inside : inside;
    return {_frame.origin.x + point.x - _boundsOrigin.x, _frame.origin.y + y};
}

- (NSPoint)paperPointFromSuperview:(NSPoint)point {
    const double y = point.y - _frame.origin.y;
    const double inside = [self paperIsTurned] ? _frame.size.height - y : y;
    return {point.x - _frame.origin.x + _boundsOrigin.x, inside + _boundsOrigin.y};
}

- (NSPoint)paperPointInWindow:(NSPoint)point {
    const NSPoint above = [self paperPointInSuperview:point];
    return _superview == nil ? above : [_superview paperPointInWindow:above];
}

- (NSPoint)paperPointFromWindow:(NSPoint)point {
    return
        [self paperPointFromSuperview:_superview == nil ? point
                                                        : [_superview paperPointFromWindow:point]];
}

- (NSPoint)convertPoint:(NSPoint)point fromView:(NSView*)view {
    return [self paperPointFromWindow:view == nil ? point : [view paperPointInWindow:point]];
}

- (NSView*)hitTest:(NSPoint)point {
    const NSPoint own = [self paperPointFromSuperview:point];
    if (self.hidden || !paper::contains(self.bounds, own))
        return nil;
    for (auto view = _subviews.rbegin(); view != _subviews.rend(); ++view)
        if (NSView* const hit = [*view hitTest:own]; hit != nil)
            return hit;
    return self;
}

- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    static_cast<void>(event);
    return NO;
}

- (void)addTrackingArea:(NSTrackingArea*)area {
    _areas.push_back(area);
}

- (NSArray*)paperTrackingAreas {
    return [NSArray arrayWithObjects:_areas.data() count:_areas.size()];
}

- (void)registerForDraggedTypes:(NSArray*)types {
    _draggedTypes = types;
}

- (NSArray*)paperDraggedTypes {
    return _draggedTypes;
}

- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector {
    static_cast<void>(selector);
    return YES;
}

- (BOOL)accessibilityPerformPress {
    return NO;
}

- (BOOL)accessibilityPerformShowMenu {
    return NO;
}

- (id)accessibilityHitTest:(NSPoint)point {
    static_cast<void>(point);
    return self;
}

@end

namespace paper {

bool contains(NSRect rect, NSPoint point) {
    return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width &&
           point.y >= rect.origin.y && point.y < rect.origin.y + rect.size.height;
}

double overlap(NSRect one, NSRect other) {
    const double right = std::min(one.origin.x + one.size.width, other.origin.x + other.size.width);
    const double top = std::min(one.origin.y + one.size.height, other.origin.y + other.size.height);
    const double width = right - std::max(one.origin.x, other.origin.x);
    const double height = top - std::max(one.origin.y, other.origin.y);
    return width > 0 && height > 0 ? width * height : 0;
}

}
