/// What a control tells that it was used.
#pragma once

#import <AppKit/AppKit.h>

#include <functional>

/// Calls its function. A control holds its target weakly: whoever owns the control owns this too.
@interface VirelineActionTarget : NSObject
- (nonnull instancetype)initWithFunction:(std::function<void()>)onAction;
- (void)act:(nullable id)sender;
@end
