/// What the settings window shows for a record of settings, and what a user's choice makes of that
/// record.
#pragma once

#include "ClientWindows/DockAnchorGuard.hpp"
#include "Platform/DesktopWords.hpp"
#include "Presentation/Form.hpp"
#include "Settings/Settings.hpp"

namespace vireline::SettingsView {

/// What the form shows besides the settings.
struct Surroundings {
    bool launchesAtLogin = false;
    DockAnchorGuard::Status anchorStatus = DockAnchorGuard::Status::off;
    /// Whether this desktop lets any program move the windows of others.
    bool canMoveWindows = true;
};

[[nodiscard]] Form form(const Settings& settings, const Surroundings& surroundings,
                        const DesktopWords& words);

/// `settings` with one field as the user set it: a slider's value goes to the nearest step of its
/// range. A value that no such control gives changes nothing, nor does a field that is no part of
/// the settings.
[[nodiscard]] Settings edited(Settings settings, SettingsField field, const FormValue& value);

}
