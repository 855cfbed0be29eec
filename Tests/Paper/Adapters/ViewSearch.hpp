// Finds views in a window on paper.
#pragma once

#include "Bridge/Conversions.hpp"
#include "Cocoa/Paper.hpp"
#include "Foundation/Geometry.hpp"

#include <string>
#include <vector>

namespace vireline::macos {

inline void collect(NSView* view, Class kind, std::vector<NSView*>& found) {
    for (NSView* child in view.subviews) {
        if ([child isKindOfClass:kind])
            found.push_back(child);
        collect(child, kind, found);
    }
}

inline std::vector<NSView*> viewsOf(NSView* view, Class kind) {
    std::vector<NSView*> found;
    collect(view, kind, found);
    return found;
}

/// The label with this text; nil if there is none.
inline NSTextField* label(NSView* view, const std::string& text) {
    for (NSView* each : viewsOf(view, NSTextField.class)) {
        NSTextField* const field = static_cast<NSTextField*>(static_cast<id>(each));
        if (field.stringValue != nil && field.stringValue.paperText == text)
            return field;
    }
    return nil;
}

/// The view's frame in the window's coordinates, y upwards.
inline Rect inWindow(NSView* view) {
    return toRect(NSAccessibilityFrameInView(view, view.bounds));
}

}
