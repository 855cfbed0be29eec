/// The user's preference for animations.
#pragma once

namespace vireline {

class MotionSettings {
public:
    virtual ~MotionSettings() = default;

    /// Whether the desktop asks programs not to animate. Must be cheap: called for every scene.
    [[nodiscard]] virtual bool reducesMotion() const = 0;
};

}
