/// A line that tells how a feature stands: a symbol, a text and a button, as far as there are any.
#pragma once

#include "Bridge/ActionTarget.hpp"
#include "Presentation/StatusLine.hpp"
#include "ProgramWindows/Labels.hpp"

#import <AppKit/AppKit.h>

#include <functional>

namespace vireline::macos {

class StatusLineView {
public:
    explicit StatusLineView(std::function<void()> onButton);

    [[nodiscard]] NSView* _Nonnull view() const noexcept { return view_; }

    void show(const StatusLine& line);

    /// Puts its parts in place for this width and returns the height that it needs.
    double layOut(double width);

private:
    VirelineFlippedView* _Nonnull view_;
    VirelineActionTarget* _Nonnull target_;
    NSImageView* _Nullable symbol_ = nil;
    NSTextField* _Nullable text_ = nil;
    NSButton* _Nullable button_ = nil;
    StatusLine shown_;
};

}
