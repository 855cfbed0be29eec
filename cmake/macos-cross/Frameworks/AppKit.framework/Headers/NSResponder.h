#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSResponder : NSObject
@end

NS_ASSUME_NONNULL_END
