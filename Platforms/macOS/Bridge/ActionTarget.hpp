/// The target of a control's action.
#pragma once

#import <AppKit/AppKit.h>

#include <functional>

/// Calls a function. Controls reference their target weakly, so the owner of the control must own
/// this too.
@interface VirelineActionTarget : NSObject
- (nonnull instancetype)initWithFunction:(std::function<void()>)onAction;
- (void)act:(nullable id)sender;
@end
