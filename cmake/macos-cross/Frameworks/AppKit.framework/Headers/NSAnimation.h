#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

@protocol NSAnimatablePropertyContainer
- (instancetype)animator;
@end

NS_ASSUME_NONNULL_END
