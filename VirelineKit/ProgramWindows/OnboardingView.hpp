/// The pages of the welcome tour.
#pragma once

#include "ClientWindows/DockAnchorGuard.hpp"
#include "Platform/Desktop/DesktopWords.hpp"
#include "Presentation/OnboardingPage.hpp"

namespace vireline::OnboardingView {

/// The index of the last page.
inline constexpr int lastStep = 2;

/// What a page depends on, besides its index.
struct Surroundings {
    DockAnchorGuard::Status anchorStatus = DockAnchorGuard::Status::off;
    /// Whether this desktop lets programs move other programs' windows.
    bool canMoveWindows = true;
    /// Whether the features that the tour offers are switched on; counts only without the anchor.
    bool hasFeatures = false;
};

/// The page with this index, from 0 to `lastStep`.
[[nodiscard]] OnboardingPage page(int step, const Surroundings& surroundings,
                                  const DesktopWords& words);

}
