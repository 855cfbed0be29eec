/// Converts the kit's menus to AppKit's.
#pragma once

#include "Presentation/Menu.hpp"

#import <AppKit/AppKit.h>

#include <functional>

namespace vireline::macos {

/// `onChoose` receives the action of the chosen command. The menu keeps it alive.
[[nodiscard]] NSMenu* _Nonnull toNSMenu(const Menu& menu,
                                        const std::function<void(const MenuAction&)>& onChoose);

/// Updates titles and check marks. `shown` must have been made from a menu with the same entries in
/// the same order.
void update(NSMenu* _Nonnull shown, const Menu& menu);

}
