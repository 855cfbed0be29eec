/// The expected state of another program's window.
#pragma once

#include <string>

namespace vireline::test {

struct FakeWindow;

}

namespace vireline::storm {

struct ModelWindow {
    /// Distinguishes it from all other windows, closed ones included.
    int number = 0;
    /// Empty if the app has none.
    std::string bundleID;
    std::string title;
    bool isHidden = false;
    /// Greater is later; the greatest of all windows is the active one's.
    int lastActive = 0;
    bool isActive = false;
    /// The window that the program meets.
    test::FakeWindow* actual = nullptr;
};

}
