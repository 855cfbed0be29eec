#include "Panels/LayerPicture.hpp"

#include "Connection/QtNative.hpp"
#include "Panels/LayerShellContext.hpp"
#include "Toolkit/Appearance.hpp"

#include <wayland-client.h>

#include <QPainter>
#include <QWindow>
#include <cmath>

namespace vireline::wayland {
namespace {

/// Qt takes an empty mask for none at all. This one is outside of every surface.
const QRect noInput{-2, -2, 1, 1};

QRect outward(const QRectF& rect) {
    const QPoint corner(static_cast<int>(std::floor(rect.left())),
                        static_cast<int>(std::floor(rect.top())));
    const QPoint opposite(static_cast<int>(std::ceil(rect.right())),
                          static_cast<int>(std::ceil(rect.bottom())));
    return {corner, QSize{opposite.x() - corner.x(), opposite.y() - corner.y()}};
}

}

LayerPicture::LayerPicture(const LayerShellContext& context, QWindow& window)
    : context_(context), window_(window), store_(&window) {}

void LayerPicture::setLayout(const xdg::PanelLayout& layout) {
    if (layout == picture_.layout())
        return;
    picture_.setLayout(layout);
    if (canvas_.size() != layout.window) {
        canvas_ = QImage{layout.window, QImage::Format_ARGB32_Premultiplied};
        canvas_.fill(Qt::transparent);
    }
}

void LayerPicture::update(bool mustCommit, bool awaitsFrame) {
    if (canvas_.isNull())
        return;
    mustCommit |= applyInput();
    if (picture_.isDamaged()) {
        const auto colors = xdg::DockColors::of(context_.appearance.isDark(), backdrop());
        const xdg::Damage painted = picture_.paint(canvas_, colors, backdrop());
        applyBlur();
        QRegion region;
        for (const QRect& rect : painted.rects())
            region += rect & canvas_.rect();
        flush(region);
    } else if (awaitsFrame) {
        flush(QRect{0, 0, 1, 1});
    } else if (mustCommit) {
        wl_surface_commit(QtNative::surface(window_));
        context_.connection.flush();
    }
}

void LayerPicture::repaint() {
    if (!canvas_.isNull())
        flush(canvas_.rect());
}

/// `pixels` may be empty; the surface is committed nevertheless.
void LayerPicture::flush(const QRegion& pixels) {
    if (store_.size() != window_.size())
        store_.resize(window_.size());
    const QRegion region = logical(pixels);
    store_.beginPaint(region);
    if (QPaintDevice* const device = store_.paintDevice()) {
        QPainter painter{device};
        // In the device's own pixels.
        const double ratio = device->devicePixelRatioF();
        painter.scale(1 / ratio, 1 / ratio);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        for (const QRect& part : region) {
            const QRect rect = outward({part.x() * ratio, part.y() * ratio, part.width() * ratio,
                                        part.height() * ratio}) &
                               canvas_.rect();
            painter.drawImage(rect.topLeft(), canvas_, rect);
        }
    }
    store_.endPaint();
    store_.flush(region);
}

/// The whole logical pixels that contain these of the device.
QRegion LayerPicture::logical(const QRegion& pixels) const {
    const double ratio = picture_.layout().mapping.scale;
    QRegion region;
    for (const QRect& rect : pixels) {
        region += outward(
            {rect.x() / ratio, rect.y() / ratio, rect.width() / ratio, rect.height() / ratio});
    }
    return region;
}

bool LayerPicture::applyInput() {
    const QRegion region = logical(picture_.inputRegion());
    if (region == input_ && !window_.mask().isEmpty())
        return false;
    input_ = region;
    window_.setMask(region.isEmpty() ? QRegion{noInput} : region);
    return true;
}

void LayerPicture::applyBlur() {
    if (org_kde_kwin_blur_manager* const manager = context_.blur()) {
        blurred_.set(*manager, *context_.compositor, *QtNative::surface(window_),
                     logical(picture_.glass()));
    } else {
        blurred_.clear();
    }
}

xdg::Backdrop LayerPicture::backdrop() const {
    return context_.blur() == nullptr ? xdg::Backdrop::translucent : xdg::Backdrop::blurred;
}

bool LayerPicture::takesPointer(QPointF position) const {
    return input_.contains(QPoint(static_cast<int>(std::floor(position.x())),
                                  static_cast<int>(std::floor(position.y()))));
}

}
