/// A window with a title bar. The program's own windows show their contents in one.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Platform/ProgramWindows.hpp"

#import <AppKit/AppKit.h>

#include <memory>

namespace vireline::macos {

class FocusReturn;

class TitledWindow : private NonCopyable {
public:
    TitledWindow(const WindowStyle& style, std::shared_ptr<FocusReturn> focus);
    ~TitledWindow();

    void setContent(NSView* _Nullable content);
    void makeKeyAndOrderFront();
    void close();
    [[nodiscard]] bool isVisible() const;

private:
    std::shared_ptr<FocusReturn> focus_;
    /// Nil if creating it failed.
    NSWindow* _Nullable window_ = nil;
};

}
