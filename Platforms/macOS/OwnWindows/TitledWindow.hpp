/// A titled window of the program's own, whatever it shows.
#pragma once

#include "Platform/ProgramWindows.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

class TitledWindow {
public:
    explicit TitledWindow(const WindowStyle& style);
    TitledWindow(const TitledWindow&) = delete;
    TitledWindow& operator=(const TitledWindow&) = delete;
    TitledWindow(TitledWindow&&) = delete;
    TitledWindow& operator=(TitledWindow&&) = delete;
    ~TitledWindow();

    void setContent(NSView* _Nonnull content);
    void makeKeyAndOrderFront();
    void close();
    [[nodiscard]] bool isVisible() const;

private:
    /// Nil if the system did not make it.
    NSWindow* _Nullable window_ = nil;
};

}
