// Colours, fonts, images and layers. Nothing is painted; tests examine their state.
#include "Cocoa/Paper.hpp"

const NSRect NSZeroRect{};

// Documented: a pointer position refers to the pixel below and to the right of it.
BOOL NSMouseInRect(NSPoint point, NSRect rect, BOOL flipped) {
    const double y = point.y - rect.origin.y;
    const double x = point.x - rect.origin.x;
    const bool isWithin = flipped ? y >= 0 && y < rect.size.height : y > 0 && y <= rect.size.height;
    return x >= 0 && x < rect.size.width && isWithin;
}
const NSFontWeight NSFontWeightRegular = 0;
const NSFontWeight NSFontWeightMedium = 0.23;
const NSFontWeight NSFontWeightSemibold = 0.3;
const NSFontWeight NSFontWeightBold = 0.4;
CALayerContentsGravity const kCAGravityResize = @"resize";
CALayerContentsFilter const kCAFilterTrilinear = @"trilinear";

void NSRectFillUsingOperation(NSRect, NSCompositingOperation operation) {
    const bool keepsShape = operation == NSCompositingOperationSourceIn;
    paper::drawing().emplace_back(keepsShape ? "fill where there is something" : "fill");
}

// Documented: a layer keeps the properties it was given. Nothing is composited or painted here.
@implementation CALayer
@end

// Belief: system colours compare equal to themselves; a CGColor lives at least as long as its
// colour's autorelease pool, here until the process ends.
@implementation NSColor

static NSColor* named(NSString* name) {
    NSColor* const color = [[NSColor alloc] init];
    color.paperName = name;
    return color;
}

+ (NSColor*)blackColor {
    return named(@"black");
}

+ (NSColor*)clearColor {
    return named(@"clear");
}

+ (NSColor*)labelColor {
    return named(@"label");
}

+ (NSColor*)secondaryLabelColor {
    return named(@"secondaryLabel");
}

+ (NSColor*)separatorColor {
    return named(@"separator");
}

+ (NSColor*)systemGreenColor {
    return named(@"systemGreen");
}

+ (NSColor*)systemOrangeColor {
    return named(@"systemOrange");
}

+ (NSColor*)systemRedColor {
    return named(@"systemRed");
}

+ (NSColor*)whiteColor {
    return named(@"white");
}

+ (NSColor*)controlAccentColor {
    return named(@"controlAccent");
}

+ (NSColor*)colorWithCGColor:(CGColorRef)color {
    return (__bridge NSColor*)color;
}

- (CGColorRef)CGColor {
    static auto& kept = *new std::map<std::string, NSColor*>;
    NSColor* const color = kept.try_emplace(self.paperName.paperText, self).first->second;
    return (__bridge CGColorRef)color;
}

- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha {
    return named(paper::text(self.paperName.paperText + "@" + std::to_string(alpha)));
}

- (void)set {
    paper::drawing().push_back("set " + self.paperName.paperText);
}

- (BOOL)isEqual:(id)other {
    return [other isKindOfClass:NSColor.class] &&
           [self.paperName isEqual:[static_cast<NSColor*>(other) paperName]];
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Belief: sizes of 13 and 11 points, as on every Mac so far.
@implementation NSFont

+ (CGFloat)systemFontSize {
    return 13;
}

+ (CGFloat)smallSystemFontSize {
    return 11;
}

+ (NSFont*)systemFontOfSize:(CGFloat)size {
    NSFont* const font = [[NSFont alloc] init];
    font.paperSize = size;
    return font;
}

+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight {
    static_cast<void>(weight);
    return [self systemFontOfSize:size];
}

+ (NSFont*)monospacedDigitSystemFontOfSize:(CGFloat)size weight:(NSFontWeight)weight {
    return [self systemFontOfSize:size weight:weight];
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

// Documented: a symbol is a template image; a drawing handler is called when the image is drawn.
@implementation NSImage

static NSImage* image(NSString* name, NSSize size) {
    NSImage* const made = [[NSImage alloc] init];
    made.paperName = name;
    made.size = size;
    return made;
}

+ (NSImage*)imageNamed:(NSImageName)name {
    return image(name, {32, 32});
}

+ (instancetype)imageWithSystemSymbolName:(NSString*)name
                 accessibilityDescription:(NSString*)description {
    static_cast<void>(description);
    NSImage* const symbol = image(name, {16, 16});
    symbol.paperIsTemplate = YES;
    return symbol;
}

+ (instancetype)imageWithSize:(NSSize)size
                      flipped:(BOOL)isFlipped
               drawingHandler:(BOOL (^)(NSRect))draw {
    static_cast<void>(isFlipped);
    NSImage* const drawn = image(@"drawn", size);
    drawn.paperDraw = draw;
    return drawn;
}

- (BOOL)isTemplate {
    return self.paperIsTemplate;
}

- (void)drawInRect:(NSRect)rect {
    if (self.paperDraw != nil)
        self.paperDraw(rect);
    else
        paper::drawing().push_back("draw " + self.paperName.paperText);
}

- (id)layerContentsForContentsScale:(CGFloat)scale {
    static_cast<void>(scale);
    paper::drawing().clear();
    [self drawInRect:{{0, 0}, self.size}];
    return self.paperName;
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    NSImage* const copy = image(self.paperName, self.size);
    copy.paperIsTemplate = self.paperIsTemplate;
    copy.paperDraw = self.paperDraw;
    return copy;
}

@end

// Documented: fill uses the current colour; here only the call is recorded.
@implementation NSBezierPath

+ (NSBezierPath*)bezierPathWithRoundedRect:(NSRect)rect xRadius:(CGFloat)x yRadius:(CGFloat)y {
    static_cast<void>(rect);
    static_cast<void>(x);
    static_cast<void>(y);
    return [[self alloc] init];
}

- (void)fill {
}

- (id)copyWithZone:(struct _NSZone*)zone {
    static_cast<void>(zone);
    return self;
}

@end

namespace paper {

std::vector<std::string>& drawing() {
    static auto& steps = *new std::vector<std::string>;
    return steps;
}

}
