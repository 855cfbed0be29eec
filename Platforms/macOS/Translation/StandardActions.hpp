/// What the responder chain calls the entries of the main menu.
#pragma once

#include "Presentation/Menu.hpp"

namespace vireline::macos::StandardActions {

/// The name of the message that AppKit sends up the chain, from the view that has the focus to the
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
