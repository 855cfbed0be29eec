/// A titled window of the program: its frame, colours, shortcuts and position on the screen.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "Platform/ProgramWindows.hpp"

#include <QWidget>
#include <functional>
#include <memory>

namespace vireline {
class MotionSettings;
}

namespace vireline::xdg {

class Appearance;
class QtApplication;
class Symbols;

/// Shared by all such windows; must outlive them.
struct WindowContext {
    /// Raises one of them above the windows of all programs and gives it the focus.
    std::function<void(QWindow&)> bringToFront;
    const QtApplication& application;
    Appearance& appearance;
    const Symbols& symbols;
    const MotionSettings& motionSettings;
};

class QtProgramWindow final : public QWidget {
public:
    QtProgramWindow(const WindowStyle& style, const WindowContext& context);

    /// Called once, when the window was closed by the user or by another program.
    std::function<void()> onClosed;

    /// The content fills the window.
    void setContent(std::unique_ptr<QWidget> content);
    void closeOnEscape();

    /// Centres it on the display under the pointer.
    void placeInTheMiddle();
    /// Puts the frame's corner at `corner` if a display still shows that position, otherwise
    /// centres the window.
    void placeAt(QPoint corner);

    /// Raises it above the windows of all programs and gives it the focus.
    void bringToFront();

private:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void applyColours();

    const WindowContext& context_;
    Subscription appearance_;
};

}
