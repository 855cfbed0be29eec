// Display links and window animations, both in step with a 60 Hz display.
#include "Cocoa/Paper.hpp"

#include <algorithm>

@interface CADisplayLink ()
@property(strong) id paperTarget;
@property SEL paperSelector;
@property double paperDue;
@property(weak) NSView* paperView;
@end

// Documented: retains its target, and is retained by its run loop until it is invalidated; one
// created from a view follows the view's display, and pauses while there is none.
@implementation CADisplayLink

- (void)addToRunLoop:(NSRunLoop*)loop forMode:(NSRunLoopMode)mode {
    static_cast<void>(loop);
    static_cast<void>(mode);
    self.paperDue = paper::now() + paper::frameInterval;
    paper::displayLinks().push_back(self);
}

- (void)invalidate {
    CADisplayLink* const me = self;
    self.paperTarget = nil;
    std::erase(paper::displayLinks(), me);
}

- (BOOL)paperRests {
    NSWindow* const window = self.paperView.window;
    return self.paused || !window.visible || window.screen == nil;
}

@end

@interface CADisplayLink (Rest)
- (BOOL)paperRests;
@end

// Documented: from version 14 on, one display link for each call. Here also before: the program
// asks for the version.
@implementation NSView (DisplayLink)

- (CADisplayLink*)displayLinkWithTarget:(id)target selector:(SEL)selector {
    CADisplayLink* const link = [[CADisplayLink alloc] init];
    link.paperTarget = target;
    link.paperSelector = selector;
    link.paperView = self;
    return link;
}

@end

namespace paper {

std::vector<CADisplayLink*>& displayLinks() {
    static auto& all = *new std::vector<CADisplayLink*>;
    return all;
}

namespace {

double nextLink() {
    double next = never;
    for (CADisplayLink* const link : displayLinks()) {
        if ([link paperRests])
            link.paperDue = std::max(link.paperDue, now() + frameInterval);
        else
            next = std::min(next, link.paperDue);
    }
    return next;
}

}

double nextFrame() {
    return std::min(nextLink(), nextAnimationStep());
}

void serveFrame() {
    stepAnimations();
    const auto links = displayLinks();
    for (CADisplayLink* const link : links) {
        if (link.paperTarget == nil || link.paperDue > now() || [link paperRests])
            continue;
        link.paperDue = now() + frameInterval;
        guarded("display link", [&] { send(link.paperTarget, link.paperSelector, link); });
    }
}

}
