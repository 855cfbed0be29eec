#include "Panels/VirelineTileElement.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Panels/VirelineDockView.hpp"

using vireline::macos::attemptOr;
using vireline::macos::toCGRect;
using vireline::macos::toNSString;

@implementation VirelineTileElement {
    __weak VirelineDockView* _dock;
}

- (instancetype)initWithTile:(std::uint32_t)tile dock:(VirelineDockView*)dock {
    self = [super init];
    if (self == nil)
        return nil;
    _tile = tile;
    _dock = dock;
    return self;
}

- (id)accessibilityParent {
    return _dock;
}

- (NSAccessibilityRole)accessibilityRole {
    return NSAccessibilityButtonRole;
}

- (NSString*)accessibilityLabel {
    return attemptOr<NSString*>(nil, "accessibilityLabel", [&]() -> NSString* {
        const auto tile = [_dock tile:_tile];
        return tile ? toNSString(tile->label) : nil;
    });
}

- (id)accessibilityValue {
    return attemptOr<id>(nil, "accessibilityValue", [&]() -> id {
        const auto tile = [_dock tile:_tile];
        return tile && tile->value ? toNSString(*tile->value) : nil;
    });
}

- (NSRect)accessibilityFrame {
    return attemptOr(NSZeroRect, "accessibilityFrame", [&] {
        VirelineDockView* const dock = _dock;
        const auto tile = [dock tile:_tile];
        return dock != nil && tile ? NSAccessibilityFrameInView(dock, toCGRect(tile->frame))
                                   : NSZeroRect;
    });
}

- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector {
    return attemptOr<BOOL>(NO, "isAccessibilitySelectorAllowed", [&]() -> BOOL {
        if (selector != @selector(accessibilityPerformShowMenu))
            return [super isAccessibilitySelectorAllowed:selector];
        const auto tile = [_dock tile:_tile];
        return tile && tile->hasMenu;
    });
}

- (BOOL)accessibilityPerformPress {
    [_dock pressTile:_tile];
    return YES;
}

- (BOOL)accessibilityPerformShowMenu {
    [_dock showMenuOfTile:_tile];
    return YES;
}

@end
