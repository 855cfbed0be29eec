#include "App/MacPointerSettings.hpp"

#include "Bridge/Attempt.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

double MacPointerSettings::doubleClickInterval() const {
    constexpr double usual = 0.5;
    return attemptOr(usual, "doubleClickInterval", [] { return NSEvent.doubleClickInterval; });
}

}
