/// Values that many tests need, by the few numbers that matter to them.
#pragma once

#include "Layout/ScreenSnapshot.hpp"
#include "Model/DockItem.hpp"

#include <string>

namespace vireline::test {

/// An app whose name and location follow from its identifier.
inline AppRef sampleApp(const std::string& bundleID) {
    return {bundleID, "Name of " + bundleID, FileURL::fromPath("/Applications/" + bundleID)};
}

/// A display with nothing reserved.
inline ScreenSnapshot sampleScreen(std::uint32_t id, const Rect& frame) {
    return {.id = id, .frame = frame, .visibleFrame = frame};
}

/// A display with `inset` points reserved at its bottom.
inline ScreenSnapshot sampleHost(std::uint32_t id, const Rect& frame, double inset = 70) {
    ScreenSnapshot screen = sampleScreen(id, frame);
    screen.visibleFrame.y += inset;
    screen.visibleFrame.height -= inset;
    return screen;
}

}
