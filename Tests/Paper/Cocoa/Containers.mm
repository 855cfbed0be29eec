// Views that hold others.
#include "Cocoa/Extensions.hpp"

@implementation NSVisualEffectView
@end

@implementation NSImageView
@end

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

// Belief: the content fills the box; a real one insets it by its border.
@implementation NSBox {
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
