/// What differs between the tour's X desktop and its Wayland desktop.
#pragma once

#include "VirtualDesktop/VirtualDesktop.hpp"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

class TourSession {
public:
    virtual ~TourSession() = default;

    [[nodiscard]] virtual Programs programs() const = 0;
    /// The last of them is unplugged during the tour.
    [[nodiscard]] virtual std::vector<Monitor> monitors() const = 0;
    /// The monitor of the dock that the tour uses.
    [[nodiscard]] virtual std::string dock() const = 0;
    [[nodiscard]] virtual std::optional<WindowManager> manager() const = 0;
    /// Adds what a session has besides the program.
    virtual void decorate(VirtualDesktop& desktop) const = 0;
    /// Whether an app has a window that the user can see. `app` is the window's app ID or
    /// class, which may leave out the domain.
    [[nodiscard]] virtual bool shows(VirtualDesktop& desktop, std::string_view app) const = 0;
    /// Whether a menu is open that was not there `before`.
    [[nodiscard]] virtual bool showsMenu(const VirtualDesktop& desktop,
                                         const Picture& before) const = 0;
};

[[nodiscard]] std::unique_ptr<TourSession> tourSession(bool isWayland);

}
