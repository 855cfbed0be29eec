/// The format of the settings file, implemented independently from its documentation.
#pragma once

#include "Settings/Settings.hpp"

#include <string>

namespace vireline::storm {

/// The text of a file with these settings.
[[nodiscard]] std::string preferencesText(const Settings& settings);

/// Whether the text contains exactly these settings: all fourteen keys and no others.
[[nodiscard]] bool says(const std::string& text, const Settings& settings);

}
