/// A titled window of the program's own: its frame, its colours, its keys, its place on the screen.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "Platform/ProgramWindows.hpp"

#include <QWidget>
#include <functional>

namespace vireline {
class MotionSettings;
}

namespace vireline::x11 {

class Appearance;
class QtApplication;
class Symbols;
class X11Connection;

/// What all such windows share; outlives them.
struct WindowContext {
    X11Connection& connection;
    const QtApplication& application;
    Appearance& appearance;
    const Symbols& symbols;
    const MotionSettings& motionSettings;
};

class QtProgramWindow final : public QWidget {
public:
    QtProgramWindow(const WindowStyle& style, const WindowContext& context);
    QtProgramWindow(const QtProgramWindow&) = delete;
    QtProgramWindow& operator=(const QtProgramWindow&) = delete;
    QtProgramWindow(QtProgramWindow&&) = delete;
    QtProgramWindow& operator=(QtProgramWindow&&) = delete;
    ~QtProgramWindow() override = default;

    /// The user, or somebody else, has closed it; called once.
    std::function<void()> onClosed;

    /// Fills the window.
    void setContent(std::unique_ptr<QWidget> content);
    void closeOnEscape();

    /// In the middle of the display that the pointer is on.
    void placeInTheMiddle();
    /// With the frame's corner there, if a display still shows that place, else in the middle.
    void placeAt(QPoint corner);

    /// In front of the windows of all programs, with the focus.
    void bringToFront();

private:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void applyColours();

    WindowContext context_;
    Subscription appearance_;
};

}
