/// Tracks which window manager is running and whether it moves windows for other programs. Logs
/// once for each one that does not, because then the features that rely on it have no effect.
#pragma once

#include "ClientWindows/WindowReader.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <xcb/xcb.h>

#include <functional>
#include <optional>
#include <utility>

namespace vireline {
class RunLoop;
}

namespace vireline::x11 {

class X11Connection;

class ManagerNotice : private NonCopyable {
public:
    ManagerNotice(X11Connection& connection, const WindowReader& reader, RunLoop& runLoop);

    /// Notifies `listener` when a window manager starts or exits, or begins or stops moving
    /// windows.
    [[nodiscard]] Subscription observe(std::function<void()> listener) {
        return changes_.add(std::move(listener));
    }

private:
    struct Sighting {
        std::optional<xcb_window_t> window;
        ManagerAbility ability = ManagerAbility::noManager;

        bool operator==(const Sighting&) const = default;
    };

    void handle(const xcb_generic_event_t& event);
    [[nodiscard]] bool concernsManager(const xcb_property_notify_event_t& change) const;
    void lookSoon();
    void look();

    X11Connection& connection_;
    const WindowReader& reader_;
    RunLoop& runLoop_;
    /// nullopt as soon as another window manager has announced itself.
    std::optional<Sighting> last_;
    CallbackList<> changes_;
    Timer look_;
    Lifetime lifetime_;
    Subscription events_;
};

}
