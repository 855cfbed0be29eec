#include "App/MacMotionSettings.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

bool MacMotionSettings::reducesMotion() const {
    return NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion;
}

}
