/// Hears the computer wake up, where the login manager can be asked for it. Without a system bus,
/// or without a login manager on it, it stays silent.
#pragma once

#include <functional>
#include <memory>

namespace vireline::x11 {

class SleepWatch {
public:
    /// Called on the main thread after each resume. Connects in the background.
    explicit SleepWatch(std::function<void()> onResume);
    SleepWatch(const SleepWatch&) = delete;
    SleepWatch& operator=(const SleepWatch&) = delete;
    SleepWatch(SleepWatch&&) = delete;
    SleepWatch& operator=(SleepWatch&&) = delete;
    ~SleepWatch();

private:
    struct State;
    /// Shared with the connection attempt, which may outlast this.
    std::shared_ptr<State> state_;
};

}
