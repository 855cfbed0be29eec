#include "Panels/VirelineNodeView.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Icons/MacImage.hpp"
#include "Panels/VirelineGlassView.hpp"
#include "Translation/ScenePlacement.hpp"

#import <QuartzCore/QuartzCore.h>

#include <algorithm>
#include <variant>

using vireline::BadgeNode;
using vireline::DotNode;
using vireline::GlassNode;
using vireline::HandleNode;
using vireline::ImageNode;
using vireline::LabelNode;
using vireline::MarkNode;
using vireline::ProgressNode;
using vireline::SceneNode;
using vireline::SeparatorNode;
using vireline::macos::attempt;
using vireline::macos::MacImage;
using vireline::macos::toCGRect;
using vireline::macos::toNSString;
using vireline::macos::toRect;
using vireline::macos::toSize;
namespace ScenePlacement = vireline::macos::ScenePlacement;

/// Shows a node that is filled with one colour.
@interface VirelineFillNodeView : VirelineNodeView
@end

/// A filled node with a text in its middle.
@interface VirelineBadgeNodeView : VirelineFillNodeView
@end

/// A filled node with a second one inside, for the part that is done.
@interface VirelineProgressNodeView : VirelineFillNodeView
@end

@interface VirelineImageNodeView : VirelineNodeView
@end

@interface VirelineGlassNodeView : VirelineNodeView
@end

@interface VirelineLabelNodeView : VirelineNodeView
@end

namespace {

/// The colour and corner radius of such a node.
struct Fill {
    NSColor* __strong color;
    double cornerRadius;
};

struct FillOf {
    const SceneNode& node;
    vireline::Size size;

    Fill operator()(const DotNode&) const { return {NSColor.secondaryLabelColor, capsule()}; }
    Fill operator()(const HandleNode&) const { return {NSColor.labelColor, capsule()}; }
    Fill operator()(const MarkNode&) const { return {NSColor.systemOrangeColor, capsule()}; }
    Fill operator()(const BadgeNode&) const { return {NSColor.systemRedColor, capsule()}; }
    Fill operator()(const ProgressNode&) const { return {NSColor.labelColor, capsule()}; }
    Fill operator()(const SeparatorNode& separator) const {
        const double asked = separator.cornerRadius * node.scale;
        return {NSColor.separatorColor, ScenePlacement::cornerRadius(asked, size)};
    }
    Fill operator()(const auto&) const { return {NSColor.clearColor, 0}; }

private:
    [[nodiscard]] double capsule() const {
        return ScenePlacement::cornerRadius(std::max(size.width, size.height), size);
    }
};

struct MakeView {
    VirelineNodeView* operator()(const GlassNode&) const {
        return [[VirelineGlassNodeView alloc] initWithFrame:NSZeroRect];
    }
    VirelineNodeView* operator()(const ImageNode&) const {
        return [[VirelineImageNodeView alloc] initWithFrame:NSZeroRect];
    }
    VirelineNodeView* operator()(const LabelNode&) const {
        return [[VirelineLabelNodeView alloc] initWithFrame:NSZeroRect];
    }
    VirelineNodeView* operator()(const BadgeNode&) const {
        return [[VirelineBadgeNodeView alloc] initWithFrame:NSZeroRect];
    }
    VirelineNodeView* operator()(const ProgressNode&) const {
        return [[VirelineProgressNodeView alloc] initWithFrame:NSZeroRect];
    }
    VirelineNodeView* operator()(const auto&) const {
        return [[VirelineFillNodeView alloc] initWithFrame:NSZeroRect];
    }
};

/// A label for one line of text.
NSTextField* centredText(NSColor* color) {
    NSTextField* const text = [NSTextField labelWithString:@""];
    text.textColor = color;
    text.alignment = NSTextAlignmentCenter;
    text.usesSingleLineMode = YES;
    return text;
}

/// Fills a template image, such as a symbol, with the label colour. The colour is resolved here,
/// since the image is drawn later, when the appearance may not be set.
NSImage* colored(NSImage* image) {
    if (![image isTemplate])
        return image;
    NSColor* const color = [NSColor colorWithCGColor:NSColor.labelColor.CGColor];
    return [NSImage imageWithSize:image.size
                          flipped:NO
                   drawingHandler:^(NSRect rect) {
                     [image drawInRect:rect];
                     [color set];
                     NSRectFillUsingOperation(rect, NSCompositingOperationSourceIn);
                     return YES;
                   }];
}

}

@implementation VirelineNodeView

+ (VirelineNodeView*)viewForNode:(const SceneNode&)node {
    return std::visit(MakeView{}, node.content);
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self == nil)
        return nil;
    self.wantsLayer = YES;
    self.layerContentsRedrawPolicy = NSViewLayerContentsRedrawOnSetNeedsDisplay;
    return self;
}

- (void)showNode:(const SceneNode&)node scale:(CGFloat)scale {
    self.frame = toCGRect(ScenePlacement::frame(node, scale));
    self.alphaValue = std::clamp(node.opacity, 0.0, 1.0);
}

@end

@implementation VirelineFillNodeView {
    NSColor* _color;
}

- (BOOL)wantsUpdateLayer {
    return YES;
}

- (void)showNode:(const SceneNode&)node scale:(CGFloat)scale {
    [super showNode:node scale:scale];
    const Fill fill = std::visit(FillOf{node, toSize(self.frame.size)}, node.content);
    self.layer.cornerRadius = fill.cornerRadius;
    if ([fill.color isEqual:_color])
        return;
    _color = fill.color;
    self.needsDisplay = YES;
}

/// Called again whenever the system goes from light to dark or back.
- (void)updateLayer {
    attempt("updateLayer", [&] { self.layer.backgroundColor = _color.CGColor; });
}

@end

@implementation VirelineBadgeNodeView {
    NSTextField* _text;
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self == nil)
        return nil;
    _text = centredText(NSColor.whiteColor);
    [self addSubview:_text];
    return self;
}

- (void)showNode:(const SceneNode&)node scale:(CGFloat)scale {
    [super showNode:node scale:scale];
    const auto* const badge = std::get_if<BadgeNode>(&node.content);
    if (badge == nullptr)
        return;
    constexpr double textHeight = 0.68;
    const NSSize size = self.frame.size;
    _text.font = [NSFont systemFontOfSize:textHeight * size.height weight:NSFontWeightMedium];
    _text.stringValue = toNSString(badge->text);
    const double height = _text.intrinsicContentSize.height;
    _text.frame = NSMakeRect(0, (size.height - height) / 2, size.width, height);
}

@end

@implementation VirelineProgressNodeView {
    VirelineFillNodeView* _done;
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self == nil)
        return nil;
    _done = [[VirelineFillNodeView alloc] initWithFrame:NSZeroRect];
    [self addSubview:_done];
    return self;
}

- (void)showNode:(const SceneNode&)node scale:(CGFloat)scale {
    [super showNode:node scale:scale];
    const auto* const progress = std::get_if<ProgressNode>(&node.content);
    if (progress == nullptr)
        return;
    const NSSize size = self.frame.size;
    const double line = 1 / scale;
    const double height = std::max(line, size.height - 2 * line);
    const double longest = std::max(height, size.width - 2 * line);
    const SceneNode done{
        .id = node.id,
        .frame = {line, line, height + progress->fraction * (longest - height), height},
        .content = MarkNode{}};
    [_done showNode:done scale:scale];
}

@end

@implementation VirelineImageNodeView {
    NSImage* _image;
    /// The scale of the layer's contents, chosen for the node's largest size.
    CGFloat _contentsScale;
}

- (CALayer*)makeBackingLayer {
    CALayer* const layer = [super makeBackingLayer];
    layer.contentsGravity = kCAGravityResize;
    layer.minificationFilter = kCAFilterTrilinear;
    return layer;
}

- (BOOL)wantsUpdateLayer {
    return YES;
}

- (void)showNode:(const SceneNode&)node scale:(CGFloat)scale {
    [super showNode:node scale:scale];
    const auto* const content = std::get_if<ImageNode>(&node.content);
    const auto* const image =
        content == nullptr ? nullptr : dynamic_cast<const MacImage*>(content->image.get());
    if (image == nullptr) {
        _image = nil;
        self.needsDisplay = YES;
        return;
    }
    const double sharp = ScenePlacement::imageScale(image->size(), content->largestSide, scale);
    if (image->image() == _image && sharp == _contentsScale)
        return;
    _image = image->image();
    _contentsScale = sharp;
    self.needsDisplay = YES;
}

/// Called again whenever the system goes from light to dark or back.
- (void)updateLayer {
    attempt("updateLayer", [&] {
        self.layer.contentsScale = _contentsScale;
        self.layer.contents =
            _image == nil ? nil : [colored(_image) layerContentsForContentsScale:_contentsScale];
    });
}

@end

@implementation VirelineGlassNodeView {
    VirelineGlassView* _glass;
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self == nil)
        return nil;
    _glass = [[VirelineGlassView alloc] initWithFrame:self.bounds];
    _glass.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    [self addSubview:_glass];
    return self;
}

- (void)showNode:(const SceneNode&)node scale:(CGFloat)scale {
    [super showNode:node scale:scale];
    if (const auto* const glass = std::get_if<GlassNode>(&node.content)) {
        _glass.cornerRadius =
            ScenePlacement::cornerRadius(glass->cornerRadius * node.scale, toSize(self.frame.size));
    }
}

@end

@implementation VirelineLabelNodeView {
    VirelineGlassView* _glass;
    NSTextField* _text;
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self == nil)
        return nil;
    _text = centredText(NSColor.labelColor);
    _text.lineBreakMode = NSLineBreakByTruncatingTail;
    NSView* const room = [[NSView alloc] initWithFrame:NSZeroRect];
    [room addSubview:_text];
    _glass = [[VirelineGlassView alloc] initWithFrame:self.bounds];
    _glass.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    [_glass embed:room];
    [self addSubview:_glass];
    return self;
}

- (void)showNode:(const SceneNode&)node scale:(CGFloat)scale {
    [super showNode:node scale:scale];
    const auto* const label = std::get_if<LabelNode>(&node.content);
    if (label == nullptr)
        return;
    _text.font = [NSFont systemFontOfSize:label->fontSize * node.scale weight:NSFontWeightMedium];
    _text.stringValue = toNSString(label->text);
    const vireline::Size text = toSize(_text.intrinsicContentSize);
    const vireline::Size padding{label->padding.width * node.scale,
                                 label->padding.height * node.scale};
    self.frame = toCGRect(ScenePlacement::capsule(toRect(self.frame), text, padding, scale));
    const NSSize size = self.frame.size;
    _glass.cornerRadius = size.height / 2;
    _text.frame = NSMakeRect(padding.width, (size.height - text.height) / 2,
                             std::max(0.0, size.width - 2 * padding.width), text.height);
}

@end
