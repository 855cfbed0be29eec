// Container views.
#include "Cocoa/Extensions.hpp"

namespace {

/// Puts `view` into `holder` instead of the view that was held before.
void replace(NSView* __strong& held, NSView* view, NSView* holder) {
    [held removeFromSuperview];
    held = view;
    if (view != nil)
        [holder addSubview:view];
}

}

// Belief: a material in a window that is never key looks active if its state says so.
@implementation NSVisualEffectView
@end

// Documented: shows its content view on glass. Not declared in a header, because the program looks
// it up by name.
@interface NSGlassEffectView : NSView
@property CGFloat cornerRadius;
@property(strong) NSView* contentView;
@end

@implementation NSGlassEffectView {
    NSView* _content;
}

- (NSView*)contentView {
    return _content;
}

- (void)setContentView:(NSView*)view {
    replace(_content, view, self);
}

@end

// Documented: a template image takes on the tint colour. Belief: the image is scaled down to the
// view, in proportion; nothing of that is drawn here.
@implementation NSImageView
@end

// Documented: the document view is retained, and scrolls if it is larger. Nothing scrolls here:
// tests examine the document's own layout.
@implementation NSScrollView {
    NSView* _document;
}

- (NSView*)documentView {
    return _document;
}

- (void)setDocumentView:(NSView*)view {
    replace(_document, view, self);
}

@end

// Documented: the content view is resized with the box, inside its border. Belief: how wide that
// border is does not matter; here it is 3 points, and none of a line or a box of the program's own.
@implementation NSBox {
    NSView* _content;
}

- (CGFloat)paperInset {
    return self.boxType == NSBoxSeparator || self.boxType == NSBoxCustom ? 0 : 3;
}

- (NSRect)paperRoom {
    const CGFloat inset = [self paperInset];
    const NSSize size = self.frame.size;
    return {{inset, inset}, {size.width - 2 * inset, size.height - 2 * inset}};
}

- (void)setFrameFromContentFrame:(NSRect)content {
    const CGFloat inset = [self paperInset];
    self.frame = {{content.origin.x - inset, content.origin.y - inset},
                  {content.size.width + 2 * inset, content.size.height + 2 * inset}};
}

- (NSView*)contentView {
    return _content;
}

- (void)setContentView:(NSView*)view {
    view.frame = [self paperRoom];
    replace(_content, view, self);
}

- (void)setFrame:(NSRect)frame {
    [super setFrame:frame];
    _content.frame = [self paperRoom];
}

@end
