/// The window system's own tray, for desktops without a status notifier host.
#pragma once

#include "Applications/ClientWindows/WindowID.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <QColor>
#include <QImage>
#include <functional>
#include <memory>
#include <string>

namespace vireline::xdg {

class SystemTray {
public:
    virtual ~SystemTray() = default;

    /// An icon that is in the tray for as long as this object exists.
    class Icon {
    public:
        virtual ~Icon() = default;
    };

    struct IconCallbacks {
        /// Renders the icon's shape in a colour, as a square of this many pixels.
        std::function<QImage(int side, const QColor& colour)> picture;
        /// Called when the user clicks it with the primary or secondary button, both pressed and
        /// released over the icon.
        std::function<void()> clicked;
    };

    /// Identifies the current tray; `none` while there is no tray.
    [[nodiscard]] virtual WindowID current() const = 0;
    [[nodiscard]] virtual Subscription observe(std::function<void()> listener) = 0;

    /// Asks the current tray to show an icon with this accessible name.
    [[nodiscard]] virtual std::unique_ptr<Icon> makeIcon(const std::string& name,
                                                         IconCallbacks callbacks) = 0;
};

}
