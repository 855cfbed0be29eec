/// How much movement this user wants to see.
#pragma once

namespace vireline {

class MotionSettings {
public:
    virtual ~MotionSettings() = default;

    /// Whether the desktop asks programs to do without animations. Cheap; asked for every scene.
    [[nodiscard]] virtual bool reducesMotion() const = 0;
};

}
