// Desktops, full screens, other programs' windows in front, and the system's version.
#include "Cocoa/Paper.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

struct Desktop {
    NSInteger space = 0;
    bool isFullScreen = false;
    std::vector<NSRect> covers;
    int version = 15;
};

Desktop& desktop() {
    static auto& only = *new Desktop;
    return only;
}

constexpr NSInteger firstCover = 9000;

/// Belief: a window that is not opaque has no pixels where its views do not accept the pointer.
bool hasPixels(NSWindow* window, NSPoint at) {
    const NSPoint inWindow = [window convertPointFromScreen:at];
    return window.opaque || [window.contentView hitTest:inWindow] != nil;
}

/// The numbers of the windows that have pixels there, frontmost first.
std::vector<NSInteger> numbersAt(NSPoint at) {
    std::vector<NSInteger> numbers;
    const auto& covers = desktop().covers;
    for (std::size_t index = 0; index < covers.size(); ++index)
        if (NSMouseInRect(at, covers[index], NO))
            numbers.push_back(firstCover + static_cast<NSInteger>(index));
    for (NSWindow* const window : paper::orderedWindows())
        if (NSMouseInRect(at, window.frame, NO) && hasPixels(window, at))
            numbers.push_back(window.windowNumber);
    return numbers;
}

}

// Documented: considers the windows of all programs, below the one with that number, or all of them
// for 0; windows that are transparent at the point are skipped; returns 0 for none.
@implementation NSWindow (Numbers)

+ (NSInteger)windowNumberAtPoint:(NSPoint)point belowWindowWithWindowNumber:(NSInteger)number {
    const auto isAbove = [&](NSInteger other) {
        if (number == 0 || other >= firstCover)
            return number != 0;
        const auto& order = paper::orderedWindows();
        const auto place = [&](NSInteger sought) {
            return std::ranges::find(order, sought,
                                     [](NSWindow* window) { return window.windowNumber; });
        };
        return place(other) <= place(number);
    };
    for (const NSInteger found : numbersAt(point))
        if (!isAbove(found))
            return found;
    return 0;
}

@end

extern "C" bool paper_hasVersion(const char* asked) {
    constexpr std::size_t prefix = std::char_traits<char>::length("macOS ");
    return std::strlen(asked) > prefix && desktop().version >= std::atoi(asked + prefix);
}

namespace paper {

NSInteger currentSpace() {
    return desktop().space;
}

void showSpace(int number, bool isFullScreen) {
    desktop().space = number;
    desktop().isFullScreen = isFullScreen;
}

// Documented: a window is on the desktop where it was shown, unless it joins all desktops or moves
// to the active one; over another program's full screen only auxiliary windows are shown.
bool isShown(NSWindow* window) {
    const auto has = [window](NSWindowCollectionBehavior behaviour) {
        return (window.collectionBehavior & behaviour) != 0;
    };
    const bool isHere =
        has(NSWindowCollectionBehaviorCanJoinAllSpaces) || window.paperSpace == desktop().space;
    const bool mayBeHere =
        !desktop().isFullScreen || has(NSWindowCollectionBehaviorFullScreenAuxiliary);
    return window.visible && isHere && mayBeHere;
}

void cover(NSRect frame) {
    desktop().covers.push_back(frame);
}

bool isCovered(NSPoint point) {
    return std::ranges::any_of(desktop().covers,
                               [&](NSRect frame) { return NSMouseInRect(point, frame, NO); });
}

void setSystemVersion(int major) {
    desktop().version = major;
}

}
