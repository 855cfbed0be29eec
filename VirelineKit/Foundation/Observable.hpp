/// A value whose changes can be observed. Setting an equal value notifies no observer.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <utility>

namespace vireline {

template <class T>
class Observable : private NonCopyable {
public:
    Observable() = default;
    explicit Observable(T initial) : value_(std::move(initial)) {}

    [[nodiscard]] const T& get() const noexcept { return value_; }

    /// Stores the value and notifies the observers if it differs from the previous one.
    void set(T value) {
        if (value == value_)
            return;
        value_ = std::move(value);
        changes_.notify();
    }

    /// Calls `listener` after every change, when `get` already returns the new value.
    [[nodiscard]] Subscription observe(std::function<void()> listener) {
        return changes_.add(std::move(listener));
    }

private:
    T value_{};
    CallbackList<> changes_;
};

}
