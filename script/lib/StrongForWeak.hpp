// What bugs that script/mutate --macos makes are written with.
#pragma once

#include <memory>
#include <utility>

/// A weak pointer that somebody made strong.
template <class T>
struct StrongForWeak {
    StrongForWeak(std::shared_ptr<T> shared) : held(std::move(shared)) {}
    std::shared_ptr<T> lock() const { return held; }
    bool expired() const { return false; }

    std::shared_ptr<T> held;
};

/// Calls into the system that are made without a net.
template <class Function>
void unattempted(const char*, Function function) {
    function();
}

template <class Function, class Fallback>
auto unattemptedOr(Fallback, const char*, Function function) {
    return function();
}
