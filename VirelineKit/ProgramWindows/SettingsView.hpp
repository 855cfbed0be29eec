/// Describes the settings window for a settings record, and applies the user's changes to that
/// record.
#pragma once

#include "ClientWindows/DockAnchorGuard.hpp"
#include "Platform/Desktop/DesktopWords.hpp"
#include "Presentation/Form.hpp"
#include "Settings/Settings.hpp"

namespace vireline::SettingsView {

/// What the form depends on, besides the settings.
struct Surroundings {
    bool launchesAtLogin = false;
    DockAnchorGuard::Status anchorStatus = DockAnchorGuard::Status::off;
    /// Whether this desktop lets programs move other programs' windows.
    bool canMoveWindows = true;
};

[[nodiscard]] Form form(const Settings& settings, const Surroundings& surroundings,
                        const DesktopWords& words);

/// `settings` with one field as the user set it. A slider's value is rounded to the nearest step of
/// its range. Values of the wrong type and fields that are not part of the settings are ignored.
[[nodiscard]] Settings edited(Settings settings, SettingsField field, const FormValue& value);

}
