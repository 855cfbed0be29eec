#include "App/WindowSystemChoice.hpp"

namespace vireline {
namespace {

constexpr const char* underXwayland =
    ": running under Xwayland, which knows only the windows of X11 programs";

}

/// Half a dock is worse than one under Xwayland: its place and its list of apps belong together.
/// But without an X server, half a dock is better than none. Under KWin, a refusal means that the
/// program is not installed properly, and Xwayland would not make up for that.
WindowSystemChoice WindowSystemChoice::of(const SessionFacts& facts) {
    if (!facts.hasCompositor)
        return {};
    if (!facts.hasWaylandPlugin)
        return {Kind::x11, std::string{"Qt's plugin for Wayland is missing"} + underXwayland};
    if (!facts.hasLayerShell)
        return {Kind::x11, std::string{"this compositor has no layer shell"} + underXwayland};
    if (facts.listsWindows)
        return {Kind::wayland, {}};
    if (facts.isKWin) {
        return {Kind::wayland, "KWin lists windows only for programs whose installed desktop entry "
                               "asks for it: running apps do not show"};
    }
    if (facts.hasXServer)
        return {Kind::x11, std::string{"this compositor does not list windows"} + underXwayland};
    return {Kind::wayland, "this compositor does not list windows: running apps do not show"};
}

}
