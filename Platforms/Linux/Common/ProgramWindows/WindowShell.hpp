/// Holds one of the program's windows: its widgets exist only while it is open, and its position is
/// kept from one opening to the next.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "ProgramWindows/QtProgramWindow.hpp"

#include <QPoint>
#include <functional>
#include <memory>
#include <optional>

namespace vireline::xdg {

class WindowShell : private NonCopyable {
public:
    /// Fills a window before it is shown.
    using Populate = std::function<void(QtProgramWindow&)>;
    /// Called before the window and everything in it are destroyed.
    using Cleared = std::function<void()>;

    WindowShell(WindowStyle style, const WindowContext& context, Populate populate,
                Cleared cleared);

    void makeKeyAndOrderFront();
    void close();
    [[nodiscard]] bool isVisible() const noexcept { return window_ != nullptr; }

private:
    /// Deletes later, when none of the window's events is being handled.
    struct Discard {
        void operator()(QtProgramWindow* window) const;
    };

    void open();
    void closed();

    WindowStyle style_;
    const WindowContext& context_;
    Populate populate_;
    Cleared cleared_;
    std::optional<QPoint> corner_;
    std::unique_ptr<QtProgramWindow, Discard> window_;
};

}
