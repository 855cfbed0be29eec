#pragma once

#import <AppKit/NSImage.h>
#import <AppKit/NSView.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSInteger, NSVisualEffectMaterial) { NSVisualEffectMaterialPopover = 6 };
typedef NS_ENUM(NSInteger, NSVisualEffectBlendingMode) {
    NSVisualEffectBlendingModeBehindWindow
};
typedef NS_ENUM(NSInteger, NSVisualEffectState) { NSVisualEffectStateActive = 1 };

@interface NSVisualEffectView : NSView
@property NSVisualEffectMaterial material;
@property NSVisualEffectBlendingMode blendingMode;
@property NSVisualEffectState state;
@property (nullable, strong) NSImage* maskImage;
@end

NS_ASSUME_NONNULL_END
