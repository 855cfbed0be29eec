/// The settings record as the text of the preferences file: one JSON object, pretty-printed, its
/// keys sorted.
#pragma once

#include "Settings/Settings.hpp"

#include <expected>
#include <string>
#include <string_view>

namespace vireline::SettingsCoding {

/// What is wrong with a text that cannot be read.
struct Error {
    std::string description;

    bool operator==(const Error&) const = default;
};

/// All keys are written. Text that is not UTF-8 has its bad bytes replaced.
[[nodiscard]] std::string encode(const Settings& settings);

/// A missing key or a null takes its default, an unknown key is passed over; a key of the wrong
/// type, or text that is no JSON object, fails the whole reading. Values are not clamped.
[[nodiscard]] std::expected<Settings, Error> decode(std::string_view text);

}
