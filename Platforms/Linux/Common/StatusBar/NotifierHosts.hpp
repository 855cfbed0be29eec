/// Finds out whether anything on the session bus shows status notifier items, and registers ours.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Foundation/Observable.hpp"
#include "GLib/SessionBus.hpp"

#include <functional>
#include <memory>
#include <string>

namespace vireline::xdg {

class NotifierHosts : private NonCopyable {
public:
    enum class State {
        unknown, ///< no reply yet
        absent,
        present,
    };

    NotifierHosts();
    ~NotifierHosts();

    [[nodiscard]] State state() const;
    [[nodiscard]] Subscription observe(std::function<void()> listener);

    /// Null before the bus is connected, or without one.
    [[nodiscard]] GDBusConnection* bus() const;

    /// Registers this program's item with the watcher, now and whenever a new one appears. The
    /// item's object must already be exported.
    void announceItem();

private:
    /// State that outlives this object while GIO has pending calls.
    struct Watch;

    std::shared_ptr<Watch> watch_;
};

}
