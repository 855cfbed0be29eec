#pragma once

#import <AppKit/NSButton.h>
#import <AppKit/NSImage.h>
#import <AppKit/NSMenu.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSStatusBarButton : NSButton
@end

@interface NSStatusItem : NSObject
@property (nullable, readonly, strong) NSStatusBarButton* button;
@property (nullable, strong) NSMenu* menu;
@end

NS_ASSUME_NONNULL_END
