#include "App/MacPointerSettings.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

double MacPointerSettings::doubleClickInterval() const {
    return NSEvent.doubleClickInterval;
}

}
