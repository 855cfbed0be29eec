/// A settings form as data: sections of labelled controls with their values. Platforms show it with
/// native controls.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vireline {

/// Identifies a control by the setting that it changes. A form has at most one of each.
enum class SettingsField {
    sourceMode,
    position,
    iconSize,
    magnificationEnabled,
    magnification,
    autoHide,
    anchorAppleDock,
    openOnThisDisplay,
    summonOnClick,
    fillOnDoubleClick,
    launchAtLogin,
};

/// Radio buttons, one per line.
struct RadioGroup {
    std::vector<std::string> options;
    std::size_t selected = 0;

    bool operator==(const RadioGroup&) const = default;
};

/// A segmented control: options side by side.
struct Segments {
    std::vector<std::string> options;
    std::size_t selected = 0;

    bool operator==(const Segments&) const = default;
};

struct Toggle {
    bool isOn = false;

    bool operator==(const Toggle&) const = default;
};

/// `minimum` and `maximum` are multiples of `step`.
struct Slider {
    double minimum = 0;
    double maximum = 1;
    double step = 1;
    /// Within the range.
    double value = 0;
    /// The text after the slider, with tabular digits, `sliderValueWidth` wide.
    std::string valueText;

    bool operator==(const Slider&) const = default;
};

/// In points.
inline constexpr double sliderValueWidth = 38;

struct FormRow {
    SettingsField field = SettingsField::sourceMode;
    std::string title;
    std::variant<RadioGroup, Segments, Toggle, Slider> control;
    /// An explanation below the control; may be empty.
    std::string caption;
    std::optional<StatusLine> status;

    bool operator==(const FormRow&) const = default;
};

struct FormSection {
    std::string title;
    std::vector<FormRow> rows;

    bool operator==(const FormSection&) const = default;
};

struct Form {
    std::vector<FormSection> sections;

    bool operator==(const Form&) const = default;
};

/// The new value of a control: a toggle's state, the index of an option, or a slider's value.
using FormValue = std::variant<bool, std::size_t, double>;

}
