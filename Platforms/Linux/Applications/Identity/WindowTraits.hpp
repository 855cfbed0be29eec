/// What a window says of the program that it belongs to.
#pragma once

#include <string>
#include <string_view>

namespace vireline::x11 {

/// Cleaned and of bounded length; what a window does not say is empty.
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

    /// Takes the bytes of WM_CLASS: two texts, each ended by a zero byte if it is as it should be.
    void setWMClass(std::string_view bytes);

    bool operator==(const WindowTraits&) const = default;
};

}
