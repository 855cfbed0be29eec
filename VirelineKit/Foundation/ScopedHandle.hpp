/// Move-only handles that release what they stand for when destroyed.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <functional>
#include <memory>
#include <utility>

namespace vireline {

/// Owns a token, whose destructor does the actual release. The callback that a handle stands for
/// may destroy the handle while it runs. `Purpose` keeps handles of different things apart.
template <class Purpose>
class ScopedHandle {
public:
    ScopedHandle() = default;
    explicit ScopedHandle(std::shared_ptr<void> token) : token_(std::move(token)) {}
    ScopedHandle(ScopedHandle&&) noexcept = default;
    ScopedHandle& operator=(ScopedHandle&&) noexcept = default;
    ScopedHandle(const ScopedHandle&) = delete;
    ScopedHandle& operator=(const ScopedHandle&) = delete;
    ~ScopedHandle() = default;

    /// A handle that calls `onEnd` once, when it is destroyed or reset.
    [[nodiscard]] static ScopedHandle calling(std::function<void()> onEnd) {
        struct Caller : private NonCopyable {
            std::function<void()> onEnd;
            explicit Caller(std::function<void()> f) : onEnd(std::move(f)) {}
            ~Caller() { onEnd(); }
        };
        return ScopedHandle{std::make_shared<Caller>(std::move(onEnd))};
    }

    void reset() noexcept { token_.reset(); }
    [[nodiscard]] explicit operator bool() const noexcept { return token_ != nullptr; }

private:
    std::shared_ptr<void> token_;
};

/// Keeps an observer registered.
using Subscription = ScopedHandle<struct OfObserver>;

/// Keeps a timer scheduled. The handle of a one-shot timer stays set after it has fired.
using Timer = ScopedHandle<struct OfTimer>;

}
