#include "Panels/Picture/PanelSurface.hpp"

#include "Connection/X11Connection.hpp"
#include "Panels/Picture/OpaqueOutline.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vireline::x11 {

PanelSurface::PanelSurface(const X11Connection& connection, const DrawingConnection& drawing,
                           xcb_window_t window)
    : connection_(drawing), window_(window), context_(xcb_generate_id(drawing.get())) {
    // Uses the connection on which the window was created, so that it exists before drawing begins.
    const Owned<xcb_get_geometry_reply_t> geometry{xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), window), nullptr)};
    if (geometry)
        depth_ = geometry->depth;
    canShare_ = depth_ >= 24;
    // Keeps the content in place on the screen while the window is resized.
    constexpr std::uint32_t gravity = XCB_GRAVITY_STATIC;
    xcb_change_window_attributes(drawing.get(), window, XCB_CW_BIT_GRAVITY, &gravity);
    constexpr std::uint32_t noExposures = 0;
    xcb_create_gc(drawing.get(), context_, window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
}

PanelSurface::~PanelSurface() {
    xcb_free_gc(connection_.get(), context_);
}

void PanelSurface::resize(QSize pixels) {
    if (image_.size() == pixels)
        return;
    image_ = {};
    const auto bytes = static_cast<std::size_t>(pixels.width()) *
                       static_cast<std::size_t>(pixels.height()) * sizeof(std::uint32_t);
    if (canShare_ && (!memory_ || memory_->bytes().size() < bytes)) {
        memory_ = SharedMemory::make(connection_, bytes);
        canShare_ = memory_ != nullptr;
        read_.reset();
    }
    image_ = memory_ ? QImage{reinterpret_cast<uchar*>(memory_->bytes().data()), pixels.width(),
                              pixels.height(), QImage::Format_ARGB32_Premultiplied}
                     : QImage{pixels, QImage::Format_ARGB32_Premultiplied};
    canvas().fill(Qt::transparent);
}

QImage& PanelSurface::canvas() {
    if (read_) {
        read_->await();
        read_.reset();
        connection_.discardEvents();
    }
    return image_;
}

void PanelSurface::beginBackground(std::optional<std::uint32_t> base) {
    if (image_.isNull())
        return;
    const xcb_pixmap_t pixmap = xcb_generate_id(connection_.get());
    xcb_create_pixmap(connection_.get(), depth_, pixmap, window_,
                      static_cast<std::uint16_t>(image_.width()),
                      static_cast<std::uint16_t>(image_.height()));
    uploadRect(pixmap, image_.rect(), base);
    xcb_change_window_attributes(connection_.get(), window_, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_free_pixmap(connection_.get(), pixmap);
    connection_.finish();
}

void PanelSurface::endBackground() {
    constexpr std::uint32_t none = XCB_BACK_PIXMAP_NONE;
    xcb_change_window_attributes(connection_.get(), window_, XCB_CW_BACK_PIXMAP, &none);
    connection_.flush();
}

void PanelSurface::upload(const xdg::Damage& damage, std::optional<std::uint32_t> base) {
    for (const QRect& rect : damage.rects()) {
        if (const QRect part = rect & area(); !part.isEmpty())
            uploadRect(window_, part, base);
    }
    if (memory_ && !base)
        read_.emplace(connection_.get());
    connection_.flush();
}

/// The blended pixels exist only in the transfer buffer.
void PanelSurface::uploadRect(xcb_drawable_t to, const QRect& rect,
                              std::optional<std::uint32_t> base) {
    if (memory_ && !base) {
        share(to, rect);
    } else {
        sendInBands(to, rect, base);
    }
}

void PanelSurface::share(xcb_drawable_t to, const QRect& rect) {
    const auto number = [](int value) { return static_cast<std::uint16_t>(value); };
    xcb_shm_put_image(connection_.get(), to, context_, number(image_.width()),
                      number(image_.height()), number(rect.x()), number(rect.y()),
                      number(rect.width()), number(rect.height()),
                      static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
                      depth_, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, memory_->segment(), 0);
}

/// In bands, because the size of a request is limited.
void PanelSurface::sendInBands(xcb_drawable_t to, const QRect& rect,
                               std::optional<std::uint32_t> base) {
    constexpr std::size_t headerBytes = 64;
    const std::size_t room =
        std::size_t{xcb_get_maximum_request_length(connection_.get())} * 4 - headerBytes;
    const auto rowBytes = static_cast<std::size_t>(rect.width()) * sizeof(std::uint32_t);
    const int bandHeight = std::max(1, static_cast<int>(room / rowBytes));
    for (int top = rect.top(); top <= rect.bottom(); top += bandHeight) {
        const QRect band{rect.left(), top, rect.width(),
                         std::min(bandHeight, rect.bottom() + 1 - top)};
        rows_.clear();
        for (int y = band.top(); y <= band.bottom(); ++y) {
            const auto* const line =
                reinterpret_cast<const std::uint32_t*>(image_.constScanLine(y)) + band.left();
            rows_.insert(rows_.end(), line, line + band.width());
        }
        if (base)
            std::ranges::transform(rows_, rows_.begin(), [base](std::uint32_t pixel) {
                return OpaqueOutline::over(pixel, *base);
            });
        send(to, band);
    }
}

/// Depths of 24 and 32 take the pixels as they are; smaller ones have 16 bits per pixel. Visuals
/// with an 8-bit palette are not supported.
void PanelSurface::send(xcb_drawable_t to, const QRect& rect) {
    const auto put = [&](const void* pixels, std::size_t bytes) {
        xcb_put_image(
            connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, to, context_,
            static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height()),
            static_cast<std::int16_t>(rect.left()), static_cast<std::int16_t>(rect.top()), 0,
            depth_, static_cast<std::uint32_t>(bytes), static_cast<const std::uint8_t*>(pixels));
    };
    if (depth_ >= 24) {
        put(rows_.data(), rows_.size() * sizeof(std::uint32_t));
        return;
    }
    const QImage deep{reinterpret_cast<const uchar*>(rows_.data()), rect.width(), rect.height(),
                      QImage::Format_RGB32};
    const QImage shallow =
        deep.convertToFormat(depth_ == 15 ? QImage::Format_RGB555 : QImage::Format_RGB16);
    put(shallow.constBits(), static_cast<std::size_t>(shallow.sizeInBytes()));
}

}
