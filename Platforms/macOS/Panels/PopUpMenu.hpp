/// A native popup menu that opens without taking the focus.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Presentation/Menu.hpp"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>

namespace vireline::macos {

/// Opening a native menu blocks until it closes, so this happens in the run loop's next turn.
/// Destroying this object closes the menu without calling back.
class PopUpMenu : private NonCopyable {
public:
    /// Called once, in a later turn of the run loop, with the action of the chosen command; null if
    /// none was chosen or it has no action. May destroy the menu.
    using Closed = std::function<void(const MenuAction& chosen)>;

    /// Opens at `place` in `view`, whose y axis points downwards. The system keeps the menu inside
    /// the display.
    [[nodiscard]] static std::shared_ptr<PopUpMenu> open(const Menu& menu, NSView* _Nullable view,
                                                         const MenuPlace& place, Closed closed);

    explicit PopUpMenu(Closed closed) : closed_(std::move(closed)) {}
    ~PopUpMenu();

    /// Closes the menu and calls back immediately.
    void end();

private:
    void close();
    void finish();

    Closed closed_;
    MenuAction chosen_;
    NSMenu* _Nullable menu_ = nil;
};

}
