/// Reports when the computer wakes up from sleep, as announced by the login manager. Without a
/// system bus or a login manager it does nothing.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <functional>
#include <memory>

namespace vireline::xdg {

class SleepWatch : private NonCopyable {
public:
    /// `onResume` is called on the main thread after each wake-up. Connects in the background.
    explicit SleepWatch(std::function<void()> onResume);
    ~SleepWatch();

private:
    struct State;
    /// Shared with the pending connection attempt, which may outlive this object.
    std::shared_ptr<State> state_;
};

}
