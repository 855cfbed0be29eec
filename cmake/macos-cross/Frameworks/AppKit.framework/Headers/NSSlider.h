#pragma once

#import <AppKit/NSControl.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSSlider : NSControl
@property double minValue;
@property double maxValue;
+ (instancetype)sliderWithValue:(double)value
                       minValue:(double)minValue
                       maxValue:(double)maxValue
                         target:(nullable id)target
                         action:(nullable SEL)action API_AVAILABLE(macos(10.12));
@end

NS_ASSUME_NONNULL_END
