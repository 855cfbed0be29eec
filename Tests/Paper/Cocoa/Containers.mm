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
