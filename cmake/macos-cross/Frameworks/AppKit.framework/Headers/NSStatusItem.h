#pragma once

#import <AppKit/NSImage.h>
#import <AppKit/NSMenu.h>
#import <AppKit/NSResponder.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSStatusBarButton : NSResponder
@property (nullable, strong) NSImage* image;
@end

@interface NSStatusItem : NSObject
@property (nullable, readonly, strong) NSStatusBarButton* button;
@property (nullable, strong) NSMenu* menu;
@end

NS_ASSUME_NONNULL_END
