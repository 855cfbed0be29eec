/// Handles that end what they stand for when they are dropped.
#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace vireline {

/// Move-only. Whoever hands one out decides what its end means, by what the token's destruction
/// does. Ending it from inside the callback that it stands for is allowed.
class ScopedHandle {
public:
    ScopedHandle() = default;
    explicit ScopedHandle(std::shared_ptr<void> token) : token_(std::move(token)) {}
    ScopedHandle(ScopedHandle&&) noexcept = default;
    ScopedHandle& operator=(ScopedHandle&&) noexcept = default;
    ScopedHandle(const ScopedHandle&) = delete;
    ScopedHandle& operator=(const ScopedHandle&) = delete;
    ~ScopedHandle() = default;

    /// A handle whose end calls `onEnd` once.
    [[nodiscard]] static ScopedHandle calling(std::function<void()> onEnd) {
        struct Caller {
            std::function<void()> onEnd;
            explicit Caller(std::function<void()> f) : onEnd(std::move(f)) {}
            Caller(const Caller&) = delete;
            Caller& operator=(const Caller&) = delete;
            ~Caller() { onEnd(); }
        };
        return ScopedHandle{std::make_shared<Caller>(std::move(onEnd))};
    }

    void reset() noexcept { token_.reset(); }
    [[nodiscard]] explicit operator bool() const noexcept { return token_ != nullptr; }

private:
    std::shared_ptr<void> token_;
};

/// Keeps an observer installed.
using Subscription = ScopedHandle;

/// Keeps a timer pending. A one-shot timer that has fired leaves its handle set.
using Timer = ScopedHandle;

}
