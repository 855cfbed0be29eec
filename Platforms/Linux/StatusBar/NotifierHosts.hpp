/// Whether somebody on the session bus shows status notifier items, and the way to be shown there.
#pragma once

#include "Foundation/Observable.hpp"
#include "GLib/SessionBus.hpp"

#include <functional>
#include <memory>
#include <string>

namespace vireline::x11 {

class NotifierHosts {
public:
    enum class State {
        unknown, ///< nobody has answered yet
        absent,
        present,
    };

    NotifierHosts();
    NotifierHosts(const NotifierHosts&) = delete;
    NotifierHosts& operator=(const NotifierHosts&) = delete;
    NotifierHosts(NotifierHosts&&) = delete;
    NotifierHosts& operator=(NotifierHosts&&) = delete;
    ~NotifierHosts();

    [[nodiscard]] State state() const;
    [[nodiscard]] Subscription observe(std::function<void()> listener);

    /// Null before the bus is known, or without one.
    [[nodiscard]] GDBusConnection* bus() const;

    /// Puts this program's item on the list of those who keep one, now and whenever somebody new
    /// does. The item's object is there by then.
    void announceItem();

private:
    /// What outlives this object for as long as GIO has calls pending.
    struct Watch;

    std::shared_ptr<Watch> watch_;
};

}
