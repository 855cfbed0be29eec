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

/// How the window features stand: a line, or a button that switches them on and what to know of it.
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
    /// One dot a page, this page's in the accent colour.
    int index = 0;
    int pageCount = 1;
    /// From the leading one to the trailing one, which is the one that Return presses.
    std::vector<OnboardingButton> buttons;

    bool operator==(const OnboardingPage&) const = default;
};

}
