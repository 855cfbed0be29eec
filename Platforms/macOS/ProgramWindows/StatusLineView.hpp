/// Shows the status of a feature: text, optionally with a symbol and a button.
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

    /// Lays the line out for this width and returns its height.
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
