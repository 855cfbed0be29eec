#include "App/MacMotionSettings.hpp"

#include "Bridge/Attempt.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

bool MacMotionSettings::reducesMotion() const {
    return attemptOr(false, "accessibilityDisplayShouldReduceMotion", []() -> bool {
        return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion;
    });
}

}
