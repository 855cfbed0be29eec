/// The kit's menus as AppKit's.
#pragma once

#include "Views/Menu.hpp"

#import <AppKit/AppKit.h>

#include <cstddef>
#include <functional>

/// Hears of a menu's commands as the kit counts them.
@interface VirelineMenuTarget : NSObject

/// `onChosen` receives the index of the chosen entry.
- (nonnull instancetype)initWithFunction:(std::function<void(std::size_t)>)onChosen;

@end

namespace vireline::macos {

/// A menu without a title. AppKit keeps no hold of `target`.
[[nodiscard]] NSMenu* _Nonnull makeMenu(const Menu& menu, VirelineMenuTarget* _Nonnull target);

}
