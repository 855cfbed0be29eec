// Helpers for the bugs that script/mutate --macos inserts.
#pragma once

#include <memory>
#include <utility>

/// A strong pointer with the interface of a weak one, to insert retain cycles.
template <class T>
struct StrongForWeak {
    StrongForWeak(std::shared_ptr<T> shared) : held(std::move(shared)) {}
    std::shared_ptr<T> lock() const { return held; }
    bool expired() const { return false; }

    std::shared_ptr<T> held;
};

/// `attempt` and `attemptOr` without the catch.
template <class Function>
void unattempted(const char*, Function function) {
    function();
}

template <class Function, class Fallback>
auto unattemptedOr(Fallback, const char*, Function function) {
    return function();
}
