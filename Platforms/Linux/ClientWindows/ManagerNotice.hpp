/// Follows which window manager runs and whether it moves windows for other programs. Tells the
/// log, once for each, of one that does not: the features that need it do nothing then.
#pragma once

#include "ClientWindows/WindowReader.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
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

class ManagerNotice {
public:
    ManagerNotice(X11Connection& connection, const WindowReader& reader, RunLoop& runLoop);
    ManagerNotice(const ManagerNotice&) = delete;
    ManagerNotice& operator=(const ManagerNotice&) = delete;
    ManagerNotice(ManagerNotice&&) = delete;
    ManagerNotice& operator=(ManagerNotice&&) = delete;
    ~ManagerNotice() = default;

    /// Calls `listener` after a window manager came, went, or took to moving windows or gave it up.
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
    /// Nothing once another window manager has shown that it is there.
    std::optional<Sighting> last_;
    CallbackList<> changes_;
    Timer look_;
    Lifetime lifetime_;
    Subscription events_;
};

}
