/// XML and binary property lists through libplist, whatever the bytes are.
#pragma once

#include "Platform/DockPreferences.hpp"

namespace vireline::x11 {

class PropertyListReader final : public PropertyListDecoder {
public:
    /// Dates and UIDs become values of no kind. Text that is no UTF-8 is mended with replacement
    /// characters. Fails also for what goes beyond `PropertyListLimits`. Takes time and memory in
    /// proportion to those at most.
    [[nodiscard]] Result<PropertyList> decode(std::span<const std::byte> bytes) const override;
};

}
