/// A settings form as data: sections of labelled controls with their values. A platform realises it
/// with its own controls.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vireline {

/// A control by what it changes; a form holds each at most once.
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

/// One of several, each on a line of its own.
struct RadioGroup {
    std::vector<std::string> options;
    std::size_t selected = 0;

    bool operator==(const RadioGroup&) const = default;
};

/// One of several, side by side.
struct Segments {
    std::vector<std::string> options;
    std::size_t selected = 0;

    bool operator==(const Segments&) const = default;
};

struct Toggle {
    bool isOn = false;

    bool operator==(const Toggle&) const = default;
};

/// Both ends are whole steps.
struct Slider {
    double minimum = 0;
    double maximum = 1;
    double step = 1;
    /// Within the range.
    double value = 0;
    /// What stands behind the slider, with digits of one width, in a box as wide as told.
    std::string valueText;

    bool operator==(const Slider&) const = default;
};

/// Points.
inline constexpr double sliderValueWidth = 38;

struct FormRow {
    SettingsField field = SettingsField::sourceMode;
    std::string title;
    std::variant<RadioGroup, Segments, Toggle, Slider> control;
    /// Explains the control, below it; may be empty.
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

/// What the user gave a control: a toggle's state, the index of an option, a slider's value.
using FormValue = std::variant<bool, std::size_t, double>;

}
