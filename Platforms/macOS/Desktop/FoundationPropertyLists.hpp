/// Decodes property lists in any of the system's formats.
#pragma once

#include "Platform/Applications/DockPreferences.hpp"

namespace vireline::macos {

class FoundationPropertyLists final : public PropertyListDecoder {
public:
    [[nodiscard]] Result<PropertyList> decode(std::span<const std::byte> bytes) const override;
};

}
