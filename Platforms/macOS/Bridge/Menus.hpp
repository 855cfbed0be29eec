/// The kit's menus as AppKit's.
#pragma once

#include "Presentation/Menu.hpp"

#import <AppKit/AppKit.h>

#include <cstddef>
#include <functional>

namespace vireline::macos {

/// `onChoose` receives the index of the chosen entry of `menu.entries`. It lives as long as the
/// menu.
[[nodiscard]] NSMenu* _Nonnull toNSMenu(const Menu& menu,
                                        std::function<void(std::size_t)> onChoose);

/// Brings titles and check marks up to date. `shown` was made of a menu with the same entries in
/// the same order.
void update(NSMenu* _Nonnull shown, const Menu& menu);

}
