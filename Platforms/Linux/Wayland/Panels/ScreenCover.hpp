/// An invisible surface over a whole display, above windows and panels. It learns where the pointer
/// is, and gets the clicks and keys that are meant for nothing of the program's.
#pragma once

#include "Panels/LayerRole.hpp"

#include <QPoint>
#include <QRasterWindow>
#include <functional>
#include <memory>

class QScreen;

namespace vireline::wayland {

class LayerShellContext;

/// Its screen must have an output.
class ScreenCover final : public QRasterWindow {
public:
    struct Events {
        /// The pointer is over the display; in Qt's screen coordinates.
        std::function<void(ScreenCover&, QPoint)> pointed;
        std::function<void()> pressed;
        std::function<void(QKeyEvent&)> keyPressed;
        /// The display is gone. Called once or more, before the role is destroyed.
        std::function<void()> closed;
    };

    /// The context must outlive this object. The events may not destroy it.
    ScreenCover(const LayerShellContext& context, QScreen& screen, Events events);
    ~ScreenCover() override;

    /// Null before the compositor shows the surface, and once the display is gone.
    [[nodiscard]] LayerRole* role() const noexcept { return isShown_ ? role_.get() : nullptr; }

private:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void configured();

    Events events_;
    std::unique_ptr<LayerRole> role_;
    bool isShown_ = false;
};

}
