#pragma once

#import <AppKit/NSControl.h>
#import <AppKit/NSImage.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSImageView : NSControl
@property (nullable, strong) NSImage* image;
@property (nullable, copy) NSColor* contentTintColor API_AVAILABLE(macos(10.14));
@end

NS_ASSUME_NONNULL_END
