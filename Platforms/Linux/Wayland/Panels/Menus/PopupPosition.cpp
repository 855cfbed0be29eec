#include "Panels/Menus/PopupPosition.hpp"

#include <xdg-shell-client-protocol.h>

#include <algorithm>

namespace vireline::wayland::PopupPosition {

/// The protocol demands an anchor on the parent; the rest of the way is an offset.
Proxy<xdg_positioner> make(xdg_wm_base& base, QSize size, const QRect& parent, QPoint corner) {
    Proxy<xdg_positioner> result{xdg_wm_base_create_positioner(&base)};
    const QPoint wanted = corner - parent.topLeft();
    const QPoint anchor{std::clamp(wanted.x(), 0, parent.width() - 1),
                        std::clamp(wanted.y(), 0, parent.height() - 1)};
    const QPoint offset = wanted - anchor;
    xdg_positioner_set_size(result.get(), size.width(), size.height());
    xdg_positioner_set_anchor_rect(result.get(), anchor.x(), anchor.y(), 1, 1);
    xdg_positioner_set_anchor(result.get(), XDG_POSITIONER_ANCHOR_TOP_LEFT);
    xdg_positioner_set_gravity(result.get(), XDG_POSITIONER_GRAVITY_BOTTOM_RIGHT);
    xdg_positioner_set_offset(result.get(), offset.x(), offset.y());
    xdg_positioner_set_constraint_adjustment(result.get(),
                                             XDG_POSITIONER_CONSTRAINT_ADJUSTMENT_SLIDE_X |
                                                 XDG_POSITIONER_CONSTRAINT_ADJUSTMENT_SLIDE_Y);
    return result;
}

}
