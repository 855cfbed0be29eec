#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSImageName;

@interface NSImage : NSObject <NSCopying>
@property NSSize size;
+ (nullable NSImage*)imageNamed:(NSImageName)name;
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)symbolName
                          accessibilityDescription:(nullable NSString*)description
    API_AVAILABLE(macos(11.0));
@end

NS_ASSUME_NONNULL_END
