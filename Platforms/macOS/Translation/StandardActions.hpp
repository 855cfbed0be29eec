/// The selectors of the main menu's actions.
#pragma once

#include "Presentation/Menu.hpp"

namespace vireline::macos::StandardActions {

/// The selector that AppKit sends along the responder chain, from the focused view to the
/// application.
[[nodiscard]] constexpr const char* selector(StandardAction action) {
    switch (action) {
    case StandardAction::terminate:
        return "terminate:";
    case StandardAction::undo:
        return "undo:";
    case StandardAction::redo:
        return "redo:";
    case StandardAction::cut:
        return "cut:";
    case StandardAction::copy:
        return "copy:";
    case StandardAction::paste:
        return "paste:";
    case StandardAction::selectAll:
        return "selectAll:";
    }
    return "";
}

}
