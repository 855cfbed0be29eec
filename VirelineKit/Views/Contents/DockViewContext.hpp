/// What the views of all docks share. Everything referenced outlives the views.
#pragma once

#include <optional>

namespace vireline {

class DockViewModel;
class IconStore;
class MotionSettings;
class PointerSettings;
class RunLoop;
class TrashService;
struct DesktopWords;
struct DockActions;

struct DockViewContext {
    DockViewModel& model;
    IconStore& icons;
    const DockActions& actions;
    RunLoop& runLoop;
    const PointerSettings& pointerSettings;
    const MotionSettings& motionSettings;
    const TrashService& trash;
    const DesktopWords& words;
    /// The position of a simulated pointer for screenshots, until the real one enters the dock.
    std::optional<double> demoCursorFraction;
};

}
