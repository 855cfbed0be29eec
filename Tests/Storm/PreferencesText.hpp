/// The settings' file, written down a second time from its documented form.
#pragma once

#include "Settings/Settings.hpp"

#include <string>

namespace vireline::storm {

/// A file with these settings.
[[nodiscard]] std::string preferencesText(const Settings& settings);

/// Whether a file's text says exactly that, all fourteen keys and no other.
[[nodiscard]] bool says(const std::string& text, const Settings& settings);

}
