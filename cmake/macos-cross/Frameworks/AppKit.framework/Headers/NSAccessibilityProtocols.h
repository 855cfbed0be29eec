#pragma once

#import <AppKit/NSAccessibilityConstants.h>

NS_ASSUME_NONNULL_BEGIN

API_AVAILABLE(macos(10.10))
@protocol NSAccessibility <NSObject>
@property (getter=isAccessibilityElement) BOOL accessibilityElement;
@property (nullable, copy) NSAccessibilityRole accessibilityRole;
@property (nullable, copy) NSString* accessibilityLabel;
@property (nullable, copy) NSString* accessibilityTitle;
@property (nullable, strong) id accessibilityValue;
@property NSRect accessibilityFrame;
@property (nullable, weak) id accessibilityParent;
@property (nullable, copy) NSArray* accessibilityChildren;
- (nullable id)accessibilityHitTest:(NSPoint)point;
- (BOOL)isAccessibilitySelectorAllowed:(SEL)selector;
- (BOOL)accessibilityPerformPress;
- (BOOL)accessibilityPerformShowMenu;
@end

NS_ASSUME_NONNULL_END
