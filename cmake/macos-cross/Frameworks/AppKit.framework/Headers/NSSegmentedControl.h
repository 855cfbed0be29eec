#pragma once

#import <AppKit/NSControl.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSSegmentSwitchTracking) { NSSegmentSwitchTrackingSelectOne = 0 };

@interface NSSegmentedControl : NSControl
@property NSInteger selectedSegment;
+ (instancetype)segmentedControlWithLabels:(NSArray<NSString*>*)labels
                              trackingMode:(NSSegmentSwitchTracking)trackingMode
                                    target:(nullable id)target
                                    action:(nullable SEL)action API_AVAILABLE(macos(10.12));
@end

NS_ASSUME_NONNULL_END
