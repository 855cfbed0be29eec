/// Encodes the settings record as the text of the preferences file, a pretty-printed JSON object
/// with sorted keys, and decodes it.
#pragma once

#include "Settings/Settings.hpp"

#include <expected>
#include <string>
#include <string_view>

namespace vireline::SettingsCoding {

/// Why a text could not be decoded.
struct Error {
    std::string description;

    bool operator==(const Error&) const = default;
};

/// Writes all keys. Bytes that are not valid UTF-8 are replaced.
[[nodiscard]] std::string encode(const Settings& settings);

/// A missing key or a null gives the default, and an unknown key is ignored. Decoding fails if a
/// value has the wrong type or is unknown, or if the text is not a JSON object. Numbers are not
/// clamped.
[[nodiscard]] std::expected<Settings, Error> decode(std::string_view text);

}
