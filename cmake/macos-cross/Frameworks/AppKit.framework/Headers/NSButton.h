#pragma once

#import <AppKit/NSControl.h>
#import <AppKit/NSImage.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSButton : NSControl
@property (nullable, strong) NSImage* image;
@property NSControlStateValue state;
@property (copy) NSString* keyEquivalent;
+ (instancetype)buttonWithTitle:(NSString*)title
                         target:(nullable id)target
                         action:(nullable SEL)action API_AVAILABLE(macos(10.12));
+ (instancetype)radioButtonWithTitle:(NSString*)title
                              target:(nullable id)target
                              action:(nullable SEL)action API_AVAILABLE(macos(10.12));
@end

NS_ASSUME_NONNULL_END
