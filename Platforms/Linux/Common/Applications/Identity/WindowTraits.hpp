/// What a window says about the program that it belongs to.
#pragma once

#include <string>
#include <string_view>

namespace vireline::xdg {

/// Sanitised and of bounded length; unset properties are empty.
struct WindowTraits {
    /// The two halves of WM_CLASS.
    std::string instance;
    std::string className;
    /// `_GTK_APPLICATION_ID`.
    std::string gtkApplicationID;
    /// `_KDE_NET_WM_DESKTOP_FILE`: an ID or a path.
    std::string kdeDesktopFile;
    /// `_NET_STARTUP_ID`.
    std::string startupID;

    /// Takes the bytes of WM_CLASS: two texts, normally each terminated by a zero byte.
    void setWMClass(std::string_view bytes);

    /// Takes the ID by which a window names its program under Wayland: that of its desktop entry,
    /// by convention, but often only a class as above.
    void setAppID(std::string_view bytes);

    bool operator==(const WindowTraits&) const = default;
};

}
