/// The pointer options of the system's settings.
#pragma once

#include "Platform/Desktop/PointerSettings.hpp"

namespace vireline::macos {

class MacPointerSettings final : public PointerSettings {
public:
    [[nodiscard]] double doubleClickInterval() const override;
};

}
