#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSPasteboardType;
typedef NSString* NSPasteboardReadingOptionKey;

APPKIT_EXTERN NSPasteboardType const NSPasteboardTypeFileURL API_AVAILABLE(macos(10.13));
APPKIT_EXTERN NSPasteboardReadingOptionKey const NSPasteboardURLReadingFileURLsOnlyKey;

@interface NSPasteboard : NSObject
- (nullable NSArray*)readObjectsForClasses:(NSArray<Class>*)classArray
                                   options:(nullable NSDictionary<NSPasteboardReadingOptionKey, id>*)
                                               options;
@end

NS_ASSUME_NONNULL_END
