/// Gives the focus back to the program that had it before, once the last of this program's windows
/// has closed. Otherwise this program would keep the focus without a window, and key presses would
/// be lost.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"

#import <AppKit/AppKit.h>

#include <set>

namespace vireline::macos {

class TitledWindow;

class FocusReturn : private NonCopyable {
public:
    FocusReturn();

    void add(const TitledWindow& window) { windows_.insert(&window); }
    void remove(const TitledWindow& window) { windows_.erase(&window); }

    /// To be called before a window takes the focus.
    void remember();

private:
    void giveBackSoon();
    void giveBack();

    std::set<const TitledWindow*> windows_;
    NSRunningApplication* _Nullable before_ = nil;
    Lifetime lifetime_;
    Subscription closing_;
};

}
