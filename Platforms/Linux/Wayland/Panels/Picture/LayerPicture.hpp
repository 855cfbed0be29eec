/// Shows a dock's picture on its surface: pixels, and the regions for input and blur.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Panels/PanelPicture.hpp"
#include "Panels/Picture/BlurredRegion.hpp"
#include "Panels/Picture/PictureBuffers.hpp"

#include <QPointF>
#include <QRegion>
#include <optional>

namespace vireline::wayland {

class DockContext;
class DockSurface;

class LayerPicture : private NonCopyable {
public:
    /// Both must outlive this object.
    LayerPicture(const DockContext& context, DockSurface& surface);

    void setScene(const Scene& scene) { picture_.setScene(scene); }
    /// A layout for which there is no memory is not shown.
    void setLayout(const xdg::PanelLayout& layout);
    /// The colours or the backdrop have changed.
    void lookChanged() { picture_.damageAll(); }

    /// Paints what changed and commits the surface, also if only a region or the surface's place
    /// has changed. `awaitsFrame` makes the compositor announce the next frame in any case.
    void update(bool mustCommit, bool awaitsFrame);

    /// Whether the surface receives the pointer at this position.
    [[nodiscard]] bool takesPointer(QPointF position) const;

private:
    [[nodiscard]] xdg::Backdrop backdrop() const;
    [[nodiscard]] QRegion logical(const QRegion& pixels) const;
    bool applyInput();
    void applyBlur();
    void paint();

    const DockContext& context_;
    DockSurface& surface_;
    PictureBuffers buffers_;
    xdg::PanelPicture picture_;
    /// nullopt before the surface has one.
    std::optional<QRegion> input_;
    BlurredRegion blurred_;
};

}
