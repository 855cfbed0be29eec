#include "Panels/Picture/LayerPicture.hpp"

#include "Foundation/DevLog.hpp"
#include "Panels/Surfaces/DockContext.hpp"
#include "Panels/Surfaces/DockSurface.hpp"
#include "Toolkit/Appearance.hpp"

#include <cmath>

namespace vireline::wayland {
LayerPicture::LayerPicture(const DockContext& context, DockSurface& surface)
    : context_(context), surface_(surface), buffers_(*context.memory) {}

void LayerPicture::setLayout(const xdg::PanelLayout& layout) {
    if (layout == picture_.layout() && !buffers_.size().isEmpty())
        return;
    picture_.setLayout(layout);
    if (!buffers_.resize(layout.window))
        DevLog::write("no memory for the picture of a dock");
}

void LayerPicture::update(bool mustCommit, bool awaitsFrame) {
    if (buffers_.size().isEmpty())
        return;
    mustCommit |= applyInput();
    const bool isDamaged = picture_.isDamaged();
    if (isDamaged)
        paint();
    if (awaitsFrame)
        surface_.requestFrame();
    if (isDamaged || awaitsFrame || mustCommit)
        surface_.commit();
}

void LayerPicture::paint() {
    const auto colors = xdg::DockColors::of(context_.appearance.isDark(), backdrop());
    const xdg::Damage painted = picture_.paint(buffers_.next(), colors, backdrop());
    applyBlur();
    surface_.attach(buffers_.finish(painted), painted.rects());
}

/// The smallest region of whole logical pixels that contains these device pixels.
QRegion LayerPicture::logical(const QRegion& pixels) const {
    const double ratio = picture_.layout().mapping.scale;
    QRegion region;
    for (const QRect& rect : pixels)
        region +=
            QRectF{QPointF{rect.topLeft()} / ratio, QSizeF{rect.size()} / ratio}.toAlignedRect();
    return region;
}

bool LayerPicture::applyInput() {
    const QRegion region = logical(picture_.inputRegion());
    if (input_ == region)
        return false;
    input_ = region;
    surface_.setInput(region);
    return true;
}

void LayerPicture::applyBlur() {
    if (org_kde_kwin_blur_manager* const manager = context_.blur()) {
        blurred_.set(*manager, *context_.compositor, surface_.get(), logical(picture_.glass()));
    } else {
        blurred_.clear();
    }
}

xdg::Backdrop LayerPicture::backdrop() const {
    return context_.blur() == nullptr ? xdg::Backdrop::translucent : xdg::Backdrop::blurred;
}

bool LayerPicture::takesPointer(QPointF position) const {
    return input_ && input_->contains(QPoint(static_cast<int>(std::floor(position.x())),
                                             static_cast<int>(std::floor(position.y()))));
}

}
