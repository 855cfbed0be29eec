// Views that hold others.
#include "Cocoa/Extensions.hpp"

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
    [_content removeFromSuperview];
    _content = view;
    if (view != nil)
        [self addSubview:view];
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
    [_document removeFromSuperview];
    _document = view;
    if (view != nil)
        [self addSubview:view];
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
