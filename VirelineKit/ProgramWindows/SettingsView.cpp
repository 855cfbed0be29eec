#include "ProgramWindows/SettingsView.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <utility>

namespace vireline::SettingsView {
namespace {

struct Range {
    double minimum;
    double maximum;
    int stepsPerUnit;
};

/// In points.
constexpr Range iconSizes{32, 64, 1};
/// Factors.
/// Factors.
constexpr Range magnifications{1.2, 2.0, 10};

/// In the order of the options.
constexpr std::array sourceModes{SourceMode::mirror, SourceMode::manual};

template <class Options, class Value>
std::size_t indexOf(const Options& options, Value value) {
    return static_cast<std::size_t>(std::ranges::find(options, value) - options.begin());
}

/// Clamped, since the file may contain any number and the text has room for only a few digits.
std::string integerText(double value) {
    constexpr double most = 99999;
    return std::to_string(static_cast<int>(std::clamp(value, -most, most)));
}

Slider slider(const Range& range, double value, double factor) {
    return {.minimum = range.minimum,
            .maximum = range.maximum,
            .step = 1.0 / range.stepsPerUnit,
            .value = std::clamp(value, range.minimum, range.maximum),
            .valueText = integerText(value * factor)};
}

double snapped(const Range& range, double value) {
    const double step = std::round(value * range.stepsPerUnit) / range.stepsPerUnit;
    return std::clamp(step, range.minimum, range.maximum);
}

FormRow toggle(SettingsField field, std::string title, bool isOn, std::string caption = {}) {
    return {field, std::move(title), Toggle{isOn}, std::move(caption), std::nullopt};
}

/// Joins the sentences of a caption; the second may be empty.
std::string joined(const std::string& first, const std::string& second) {
    return second.empty() ? first : first + " " + second;
}

FormSection apps(const Settings& settings, const DesktopWords& words) {
    const std::string caption =
        settings.sourceMode == SourceMode::mirror
            ? "The second dock follows " + words.dock +
                  " automatically. Reordering or adding an app switches to your own manual list."
            : "Drag apps from " + words.fileManager +
                  " onto the dock to add them. Drag tiles to reorder. Right-click a tile to remove "
                  "it.";
    return {"Apps",
            {{SettingsField::sourceMode, "Source",
              RadioGroup{{"Mirror " + words.dock, "Manual list"},
                         indexOf(sourceModes, settings.sourceMode)},
              caption, std::nullopt}}};
}

std::vector<std::string> positionTitles() {
    std::vector<std::string> titles;
    titles.reserve(dockPositions.size());
    for (const DockPositionTraits& position : dockPositions)
        titles.emplace_back(position.title);
    return titles;
}

FormSection appearance(const Settings& settings) {
    constexpr double percent = 100;
    FormSection section{"Appearance",
                        {{SettingsField::position,
                          "Position on screen",
                          Segments{positionTitles(), static_cast<std::size_t>(settings.position)},
                          {},
                          std::nullopt},
                         {SettingsField::iconSize,
                          "Icon size",
                          slider(iconSizes, settings.iconSize, 1),
                          {},
                          std::nullopt},
                         toggle(SettingsField::magnificationEnabled, "Magnification",
                                settings.magnificationEnabled)}};
    if (settings.magnificationEnabled)
        section.rows.push_back({SettingsField::magnification,
                                "Magnify to",
                                slider(magnifications, settings.magnification, percent),
                                {},
                                std::nullopt});
    return section;
}

StatusLine warning(std::string text, std::string button = {}) {
    using Tone = StatusLine::Tone;
    return {{}, Tone::neutral, std::move(text), Tone::warning, std::move(button)};
}

std::optional<StatusLine> anchorLine(const Settings& settings, const Surroundings& surroundings,
                                     const DesktopWords& words) {
    using Tone = StatusLine::Tone;
    if (!settings.anchorAppleDock)
        return std::nullopt;
    switch (surroundings.anchorStatus) {
    case DockAnchorGuard::Status::active:
        return StatusLine{"checkmark.circle.fill",
                          Tone::positive,
                          "Active. " + words.dockAtStart + " stays where it is.",
                          Tone::neutral,
                          {}};
    case DockAnchorGuard::Status::waitingForPermission:
        return warning(words.anchorWaits, words.openPermissionPane);
    case DockAnchorGuard::Status::off:
        break;
    }
    return std::nullopt;
}

FormSection behaviour(const Settings& settings, const Surroundings& surroundings,
                      const DesktopWords& words) {
    FormSection section{
        "Behaviour",
        {toggle(SettingsField::autoHide, "Automatically hide and show the dock", settings.autoHide,
                "The dock collapses to a thin line at the screen edge and returns when the pointer "
                "touches it."),
         toggle(SettingsField::anchorAppleDock, "Keep " + words.dock + " on its own display",
                settings.anchorAppleDock,
                joined("Stops " + words.dock +
                           " from jumping to this dock's display when the cursor pushes the bottom "
                           "edge.",
                       words.anchorNeeds))}};
    section.rows.back().status = anchorLine(settings, surroundings, words);
    return section;
}

FormSection windows(const Settings& settings, const Surroundings& surroundings,
                    const DesktopWords& words) {
    FormSection section{
        "Windows",
        {toggle(SettingsField::openOnThisDisplay, "Open apps on the dock's display",
                settings.openOnThisDisplay,
                "An app launched from this dock opens its window on this dock's display."),
         toggle(SettingsField::summonOnClick, "Move windows to the dock you click",
                settings.summonOnClick,
                "Clicking a running app whose window sits on another display brings the window "
                "here."),
         toggle(SettingsField::fillOnDoubleClick, "Fill the display on double-click",
                settings.fillOnDoubleClick,
                joined("Double-clicking a tile grows the app's window to fill this display's free "
                       "space, leaving room for the dock.",
                       words.windowFeaturesNeed))}};
    if (!surroundings.canMoveWindows) {
        for (FormRow& row : section.rows)
            row.status = warning(words.cannotMoveWindows);
    }
    return section;
}

template <class Options, class Value, class Projection = std::identity>
void choose(const Options& options, const FormValue& value, Value& chosen,
            Projection projection = {}) {
    if (const auto* index = std::get_if<std::size_t>(&value); index && *index < options.size())
        chosen = std::invoke(projection, options.at(*index));
}

void slide(const Range& range, const FormValue& value, double& slid) {
    if (const auto* number = std::get_if<double>(&value); number && !std::isnan(*number))
        slid = snapped(range, *number);
}

void toggle(const FormValue& value, bool& toggled) {
    if (const auto* isOn = std::get_if<bool>(&value))
        toggled = *isOn;
}

}

Form form(const Settings& settings, const Surroundings& surroundings, const DesktopWords& words) {
    return {{apps(settings, words),
             appearance(settings),
             behaviour(settings, surroundings, words),
             windows(settings, surroundings, words),
             {"General",
              {toggle(SettingsField::launchAtLogin, "Launch at login",
                      surroundings.launchesAtLogin)}}}};
}

Settings edited(Settings settings, SettingsField field, const FormValue& value) {
    switch (field) {
    case SettingsField::sourceMode:
        choose(sourceModes, value, settings.sourceMode);
        break;
    case SettingsField::position:
        choose(dockPositions, value, settings.position, &DockPositionTraits::position);
        break;
    case SettingsField::iconSize:
        slide(iconSizes, value, settings.iconSize);
        break;
    case SettingsField::magnificationEnabled:
        toggle(value, settings.magnificationEnabled);
        break;
    case SettingsField::magnification:
        slide(magnifications, value, settings.magnification);
        break;
    case SettingsField::autoHide:
        toggle(value, settings.autoHide);
        break;
    case SettingsField::anchorAppleDock:
        toggle(value, settings.anchorAppleDock);
        break;
    case SettingsField::openOnThisDisplay:
        toggle(value, settings.openOnThisDisplay);
        break;
    case SettingsField::summonOnClick:
        toggle(value, settings.summonOnClick);
        break;
    case SettingsField::fillOnDoubleClick:
        toggle(value, settings.fillOnDoubleClick);
        break;
    case SettingsField::launchAtLogin:
        break;
    }
    return settings;
}

}
