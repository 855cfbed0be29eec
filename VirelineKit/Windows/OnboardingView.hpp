/// The pages of the welcome tour.
#pragma once

#include "WindowManagement/DockAnchorGuard.hpp"
#include "Windows/OnboardingPage.hpp"

namespace vireline::OnboardingView {

/// The index of the last page.
inline constexpr int lastStep = 2;

/// The page of an index from 0 to `lastStep`.
[[nodiscard]] OnboardingPage page(int step, DockAnchorGuard::Status anchorStatus);

}
