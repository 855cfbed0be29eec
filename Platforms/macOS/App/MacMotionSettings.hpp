/// The Reduce Motion option of the system's accessibility settings.
#pragma once

#include "Platform/Desktop/MotionSettings.hpp"

namespace vireline::macos {

class MacMotionSettings final : public MotionSettings {
public:
    [[nodiscard]] bool reducesMotion() const override;
};

}
