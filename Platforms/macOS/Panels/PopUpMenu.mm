#include "Panels/PopUpMenu.hpp"

#include "Bridge/Attempt.hpp"

#import <dispatch/dispatch.h>

#include <utility>

namespace vireline::macos {

std::shared_ptr<PopUpMenu> PopUpMenu::open(const Menu& menu, NSView* view, NSPoint at,
                                           Closed closed) {
    auto opened = std::make_shared<PopUpMenu>(std::move(closed));
    const std::weak_ptr<PopUpMenu> weak = opened;
    VirelineMenuTarget* const target =
        [[VirelineMenuTarget alloc] initWithFunction:[weak](std::size_t index) {
            if (const auto held = weak.lock())
                held->chosen_ = index;
        }];
    NSMenu* const native = makeMenu(menu, target);
    opened->target_ = target;
    opened->menu_ = native;
    // The view may be gone by the next turn, and the menu with it while it is open.
    __weak NSView* const weakView = view;
    dispatch_async(dispatch_get_main_queue(), ^{
      NSView* const shownIn = weakView;
      if (!weak.expired() && shownIn != nil)
          attempt("popUpMenu",
                  [&] { [native popUpMenuPositioningItem:nil atLocation:at inView:shownIn]; });
      // The choice may come right behind the closing.
      dispatch_async(dispatch_get_main_queue(), ^{
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
    if (const auto closed = std::exchange(closed_, nullptr))
        closed(chosen_);
}

}
