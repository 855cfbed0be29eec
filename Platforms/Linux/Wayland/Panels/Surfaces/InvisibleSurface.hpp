/// An invisible surface above windows and panels. It gets clicks outside of the program's menus,
/// and keys; it learns where the pointer is, and menus open from it.
#pragma once

#include "Panels/Surfaces/LayerRole.hpp"

#include <QPoint>
#include <QRasterWindow>
#include <functional>
#include <memory>

class QScreen;

namespace vireline::wayland {

class LayerShellContext;

/// A window of Qt's, so that Qt delivers its events. Its screen must have an output.
class InvisibleSurface final : public QRasterWindow {
public:
    struct Events {
        /// The compositor shows the surface.
        std::function<void()> shown = [] {};
        /// The pointer is over the surface; in Qt's screen coordinates.
        std::function<void(InvisibleSurface&, QPoint)> pointed = [](auto& /*self*/, QPoint /*at*/) {
        };
        std::function<void()> pressed = [] {};
        std::function<void(QKeyEvent&)> keyPressed = [](QKeyEvent& /*event*/) {};
        /// The display is gone. Called once or more, before the role is destroyed.
        std::function<void()> closed = [] {};
    };

    /// Stops the surface's events and schedules it for deletion, so that an owner may let go of it
    /// in one of its events.
    struct Retire {
        void operator()(InvisibleSurface* surface) const { surface->retire(); }
    };
    using Retiring = std::unique_ptr<InvisibleSurface, Retire>;

    /// `place` is relative to the display. The context must outlive this object. The events may not
    /// destroy it.
    InvisibleSurface(const LayerShellContext& context, QScreen& screen, const QRect& place,
                     Events events);
    ~InvisibleSurface() override;
    [[nodiscard]] static Retiring make(const LayerShellContext& context, QScreen& screen,
                                       const QRect& place, Events events);

    /// Null before the compositor shows the surface, and once the display is gone.
    [[nodiscard]] LayerRole* role() const noexcept { return isShown_ ? role_.get() : nullptr; }

    /// Gives the surface the keyboard, as soon as it is shown.
    void takeKeyboard();

private:
    void retire();
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool report(QEvent& event);
    void configured();
    void shown();
    void closed() const;

    Events events_;
    std::unique_ptr<LayerRole> role_;
    bool isShown_ = false;
    bool hasContent_ = false;
    bool wantsKeyboard_ = false;
    bool isRetired_ = false;
};

}
