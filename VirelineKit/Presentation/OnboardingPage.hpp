/// One page of the welcome tour as data.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline {

enum class OnboardingAction { back, advance, finish, enableFeatures };

struct OnboardingButton {
    std::string title;
    OnboardingAction action = OnboardingAction::advance;

    bool operator==(const OnboardingButton&) const = default;
};

/// A symbol and a line of text beside it.
struct FeatureRow {
    std::string symbol;
    std::string text;

    bool operator==(const FeatureRow&) const = default;
};

/// The state of the window features: a status line, or a button that switches them on, with a
/// caption.
struct PermissionBlock {
    std::optional<StatusLine> line;
    std::optional<OnboardingButton> button;
    /// May be empty.
    std::string caption;

    bool operator==(const PermissionBlock&) const = default;
};

struct OnboardingPage {
    std::string title;
    /// May be empty.
    std::string text;
    std::vector<FeatureRow> rows;
    std::optional<PermissionBlock> permission;
    /// For the page indicator: one dot per page, the current one in the accent colour.
    int index = 0;
    int pageCount = 1;
    /// From leading to trailing. Return presses the trailing one.
    std::vector<OnboardingButton> buttons;

    bool operator==(const OnboardingPage&) const = default;
};

}
