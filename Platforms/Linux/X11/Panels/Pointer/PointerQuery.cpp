#include "Panels/Pointer/PointerQuery.hpp"

#include "Connection/X11Connection.hpp"

namespace vireline::x11 {

std::optional<PointerPlace> PointerQuery::place(const X11Connection& connection,
                                                xcb_window_t window) {
    xcb_connection_t* const x = connection.get();
    const auto ownCookie = xcb_query_pointer(x, window);
    const auto rootCookie = xcb_query_pointer(x, connection.root());
    const auto treeCookie = xcb_query_tree(x, window);
    const Owned<xcb_query_pointer_reply_t> own{xcb_query_pointer_reply(x, ownCookie, nullptr)};
    const Owned<xcb_query_pointer_reply_t> top{xcb_query_pointer_reply(x, rootCookie, nullptr)};
    const Owned<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(x, treeCookie, nullptr)};
    if (!own || !top || !tree || own->same_screen == 0)
        return std::nullopt;
    constexpr std::uint32_t anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    // A window manager that reparents docks uses a single frame window.
    return PointerPlace{.x = own->win_x,
                        .y = own->win_y,
                        .isUncovered = top->child == window || top->child == tree->parent,
                        .isPrimaryHeld = (own->mask & XCB_BUTTON_MASK_1) != 0,
                        .isAnyHeld = (own->mask & anyButton) != 0};
}

}
