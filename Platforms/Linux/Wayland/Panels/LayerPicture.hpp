/// Shows a dock's picture on its surface: pixels through Qt's backing store, and the regions for
/// input and blur.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Panels/BlurredRegion.hpp"
#include "Panels/PanelPicture.hpp"

#include <QBackingStore>
#include <QImage>
#include <QRegion>

class QWindow;

namespace vireline::wayland {

class LayerShellContext;

class LayerPicture : private NonCopyable {
public:
    /// Both must outlive this object; the window must have a surface.
    LayerPicture(const LayerShellContext& context, QWindow& window);

    void setScene(const Scene& scene) { picture_.setScene(scene); }
    void setLayout(const xdg::PanelLayout& layout);
    /// The colours or the backdrop have changed.
    void lookChanged() { picture_.damageAll(); }

    /// Paints what changed and commits the surface, also if only a region or the surface's place
    /// has changed. `awaitsFrame` makes the compositor announce the next frame in any case.
    void update(bool mustCommit, bool awaitsFrame);
    /// Commits everything again.
    void repaint();

    /// Whether the window receives the pointer at this position of the surface.
    [[nodiscard]] bool takesPointer(QPointF position) const;

private:
    [[nodiscard]] xdg::Backdrop backdrop() const;
    [[nodiscard]] QRegion logical(const QRegion& pixels) const;
    bool applyInput();
    void applyBlur();
    void flush(const QRegion& pixels);

    const LayerShellContext& context_;
    QWindow& window_;
    QBackingStore store_;
    QImage canvas_;
    xdg::PanelPicture picture_;
    QRegion input_;
    BlurredRegion blurred_;
};

}
