/// Sample values, built from the few numbers that matter to a test.
#pragma once

#include "Layout/ScreenSnapshot.hpp"
#include "Model/DockItem.hpp"

#include <string>

namespace vireline::test {

/// An app whose name and location are derived from its identifier.
inline AppRef sampleApp(const std::string& bundleID) {
    return {bundleID, "Name of " + bundleID, FileURL::fromPath("/Applications/" + bundleID)};
}

/// A display without reserved space.
inline ScreenSnapshot sampleScreen(std::uint32_t id, const Rect& frame) {
    return {.id = id, .frame = frame, .visibleFrame = frame};
}

/// A display with `inset` points reserved at the bottom.
inline ScreenSnapshot sampleHost(std::uint32_t id, const Rect& frame, double inset = 70) {
    ScreenSnapshot screen = sampleScreen(id, frame);
    screen.visibleFrame.y += inset;
    screen.visibleFrame.height -= inset;
    return screen;
}

}
