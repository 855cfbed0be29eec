/// Decodes untrusted XML and binary property lists with libplist.
#pragma once

#include "Platform/Applications/DockPreferences.hpp"

namespace vireline::xdg {

class PropertyListReader final : public PropertyListDecoder {
public:
    /// Dates and UIDs become values without a kind. Invalid UTF-8 is replaced by replacement
    /// characters. Also fails if `PropertyListLimits` are exceeded, so time and memory are bounded
    /// by them.
    [[nodiscard]] Result<PropertyList> decode(std::span<const std::byte> bytes) const override;
};

}
