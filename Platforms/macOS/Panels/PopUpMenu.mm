#include "Panels/PopUpMenu.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Bridge/Menus.hpp"

#import <dispatch/dispatch.h>

#include <utility>

namespace vireline::macos {
namespace {

/// A menu that is opened from the main queue blocks that queue, so the queue is only the fallback.
void inTheNextTurn(void (^block)()) {
    const bool isPlanned = attemptOr(false, "performInModes", [&] {
        [NSRunLoop.mainRunLoop performInModes:@[ NSRunLoopCommonModes ] block:block];
        return true;
    });
    if (!isPlanned)
        dispatch_async(dispatch_get_main_queue(), block);
}

}

std::shared_ptr<PopUpMenu> PopUpMenu::open(const Menu& menu, NSView* view, const MenuPlace& place,
                                           Closed closed) {
    auto opened = std::make_shared<PopUpMenu>(std::move(closed));
    const std::weak_ptr<PopUpMenu> weak = opened;
    NSPoint at{};
    attempt("menu", [&] {
        opened->menu_ = toNSMenu(menu, [weak](const MenuAction& chosen) {
            if (const auto held = weak.lock())
                held->chosen_ = chosen;
        });
        at = toCGPoint(place.corner(toSize(opened->menu_.size)));
    });
    NSMenu* const native = opened->menu_;
    // The view may be gone by the next turn, and this object may be destroyed while the menu is
    // open.
    __weak NSView* const weakView = view;
    inTheNextTurn(^{
      NSView* const shownIn = weakView;
      if (!weak.expired() && shownIn != nil)
          attempt("popUpMenu",
                  [&] { [native popUpMenuPositioningItem:nil atLocation:at inView:shownIn]; });
      // The choice may be reported only after the menu has closed.
      inTheNextTurn(^{
        if (const auto held = weak.lock())
            held->finish();
      });
    });
    return opened;
}

PopUpMenu::~PopUpMenu() {
    close();
}

void PopUpMenu::end() {
    close();
    finish();
}

void PopUpMenu::close() {
    attempt("cancelTracking", [this] { [menu_ cancelTrackingWithoutAnimation]; });
}

void PopUpMenu::finish() {
    // Copied, since the call may destroy this menu.
    const MenuAction chosen = chosen_;
    if (const auto closed = std::exchange(closed_, nullptr))
        closed(chosen);
}

}
