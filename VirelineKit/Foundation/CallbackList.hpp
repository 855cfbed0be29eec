/// The listeners to one event, each registered for as long as its `Subscription` lives.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <functional>
#include <memory>
#include <vector>

namespace vireline {

template <class... Arguments>
class CallbackList {
public:
    using Callback = std::function<void(Arguments...)>;

    [[nodiscard]] Subscription add(Callback callback) {
        auto kept = std::make_shared<Callback>(std::move(callback));
        callbacks_.push_back(kept);
        return Subscription{std::move(kept)};
    }

    /// Calls the listeners in the order in which they were added. A listener may add or remove
    /// listeners, itself included; one that is added during the call is not called until the next.
    template <class... Passed>
    void notify(const Passed&... arguments) {
        std::erase_if(callbacks_, [](const auto& callback) { return callback.expired(); });
        const auto listeners = callbacks_;
        for (const auto& listener : listeners) {
            if (const auto callback = listener.lock())
                (*callback)(arguments...);
        }
    }

private:
    std::vector<std::weak_ptr<Callback>> callbacks_;
};

}
