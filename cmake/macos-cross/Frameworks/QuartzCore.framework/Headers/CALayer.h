#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* CALayerContentsGravity;
typedef NSString* CALayerContentsFilter;

@interface CALayer : NSObject
@property (nullable, strong) id contents;
@property (copy) CALayerContentsGravity contentsGravity;
@property CGFloat contentsScale;
@property (copy) CALayerContentsFilter minificationFilter;
@property (nullable) CGColorRef backgroundColor;
@property CGFloat cornerRadius;
@end

CF_EXPORT CALayerContentsGravity const kCAGravityResize;
CF_EXPORT CALayerContentsFilter const kCAFilterTrilinear;

NS_ASSUME_NONNULL_END
