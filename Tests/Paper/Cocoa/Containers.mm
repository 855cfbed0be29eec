// Views that hold others.
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

// Belief: a material in a window that is never key looks active as soon as its state says so.
@implementation NSVisualEffectView
@end

// Documented: shows its content view on glass. Not declared, as the program asks for it by name.
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

@implementation NSImageView
@end

// Documented: the document view is held and scrolls as it is larger. Nothing scrolls here: what is
// looked at is the document's own layout.
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

// Documented: the content view is resized with the box. Belief: it fills the box; a real one insets
// it by its border.
@implementation NSBox {
    NSView* _content;
}

- (NSView*)contentView {
    return _content;
}

- (void)setContentView:(NSView*)view {
    view.frame = self.bounds;
    replace(_content, view, self);
}

- (void)setFrame:(NSRect)frame {
    [super setFrame:frame];
    _content.frame = self.bounds;
}

@end
