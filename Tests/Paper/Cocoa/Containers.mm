// Container views.
#include "Cocoa/Extensions.hpp"

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
    [_content removeFromSuperview];
    _content = view;
    if (view != nil)
        [self addSubview:view];
}

@end

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
    [_document removeFromSuperview];
    _document = view;
    if (view != nil)
        [self addSubview:view];
}

@end

// Documented: the content view is resized with the box. Belief: it fills the box; a real box insets
// it by its border.
@implementation NSBox {
    NSView* _content;
}

- (NSView*)contentView {
    return _content;
}

- (void)setContentView:(NSView*)view {
    [_content removeFromSuperview];
    _content = view;
    if (view == nil)
        return;
    view.frame = self.bounds;
    [self addSubview:view];
}

- (void)setFrame:(NSRect)frame {
    [super setFrame:frame];
    _content.frame = self.bounds;
}

@end
