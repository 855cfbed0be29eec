#include "Compositors/KWin/KWinScripts.hpp"

#include "Compositors/CommandNumber.hpp"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace vireline::wayland::KWinScripts {
namespace {

constexpr std::string_view beginning = R"(
(workspace.windowList ? workspace.windowList() : workspace.clientList()).filter(function(window) {
    return String(window.internalId) == id;
}).forEach(function(window) {
    window.minimized = false;
    if (!window.onAllDesktops && workspace.windowList) {
        if (window.desktops.indexOf(workspace.currentDesktop) < 0)
            window.desktops = [workspace.currentDesktop];
    } else if (!window.onAllDesktops && window.desktop != workspace.currentDesktop) {
        window.desktop = workspace.currentDesktop;
    }
)";

/// Finds the display at a place: an object in KWin 6, a number in KWin 5.
constexpr std::string_view displayAt = R"(
function displayAt(x, y) {
    function contains(area) {
        return area.x <= x && x < area.x + area.width && area.y <= y && y < area.y + area.height;
    }
    if (workspace.windowList)
        return workspace.screens.find(function(screen) { return contains(screen.geometry); });
    for (var i = 0; i < workspace.numScreens; ++i)
        if (contains(workspace.clientArea(KWin.ScreenArea, i, workspace.currentDesktop)))
            return i;
}
)";

constexpr std::string_view end = "});\n";

/// Only the characters of a UUID are kept, because the ID becomes part of a script.
std::string onWindow(const KWinWindow& window, const std::string& statements) {
    std::string id = window.uuid;
    std::erase_if(id, [](char letter) {
        return std::isxdigit(static_cast<unsigned char>(letter)) == 0 &&
               std::string_view{"{}-"}.find(letter) == std::string_view::npos;
    });
    return "var id = \"" + id + "\";" + std::string{beginning} + statements + std::string{end};
}

std::string setFrame(const std::string& corner, const std::string& width,
                     const std::string& height) {
    return "    window.frameGeometry = {" + corner + ", width: " + width + ", height: " + height +
           "};\n";
}

std::string cornerOf(Point point) {
    return "x: " + number(point.x) + ", y: " + number(point.y);
}

}

std::string move(const KWinWindow& window, Point corner) {
    // A pending resize is kept, although `frameGeometry` still reports the old size.
    if (!window.isMaximised && !window.isFullScreen) {
        return onWindow(window, setFrame(cornerOf(corner), "window.frameGeometry.width",
                                         "window.frameGeometry.height"));
    }
    // KWin then makes the window fill that display.
    const Point centre = Rect{corner.x, corner.y, window.frame.width, window.frame.height}.center();
    return std::string{displayAt} +
           onWindow(window, "    var display = displayAt(" + number(centre.x) + ", " +
                                number(centre.y) +
                                ");\n"
                                "    if (display !== undefined)\n"
                                "        workspace.sendClientToScreen(window, display);\n");
}

std::string place(const KWinWindow& window, const Rect& frame) {
    return onWindow(
        window, "    window.fullScreen = false;\n"
                "    window.setMaximize(false, false);\n" +
                    setFrame(cornerOf(frame.origin()), number(frame.width), number(frame.height)));
}

}
