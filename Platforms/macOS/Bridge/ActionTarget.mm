#include "Bridge/ActionTarget.hpp"

#include <utility>

@implementation VirelineActionTarget {
    std::function<void()> _onAction;
}

- (instancetype)initWithFunction:(std::function<void()>)onAction {
    self = [super init];
    if (self != nil)
        _onAction = std::move(onAction);
    return self;
}

- (void)act:(id)sender {
    // Copied, since the action may destroy this object.
    const auto onAction = _onAction;
    onAction();
}

@end
