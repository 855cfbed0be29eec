#include "Input/Cursor.hpp"

#include "Connection/WaylandConnection.hpp"
#include "Icons/Themes/IconTheme.hpp"
#include "Input/CursorTheme.hpp"
#include "Painting/Pixels/Pixels.hpp"

#include <wayland-client.h>

#include <QString>
#include <cmath>

namespace vireline::wayland {
namespace {

constexpr int usualCursorSize = 24;
constexpr int largestCursorSize = 256;
constexpr std::uint32_t versionWithScale = 3;

/// Both are in the environment, where all programs look for them.
int themeSize() {
    const int size = qEnvironmentVariableIntValue("XCURSOR_SIZE");
    return size > 0 && size <= largestCursorSize ? size : usualCursorSize;
}

std::string themeName() {
    const auto name = qEnvironmentVariable("XCURSOR_THEME").toStdString();
    return name.empty() ? "default" : name;
}

/// The protocol demands of a buffer's size that it is a multiple of its scale.
QSize multipleOf(int scale, QSize size) {
    const auto up = [scale](int length) { return (length + scale - 1) / scale * scale; };
    return {up(size.width()), up(size.height())};
}

}

Cursor::Cursor(const WaylandConnection& connection)
    : memory_(connection.bind<wl_shm>(wl_shm_interface, 1)) {
    if (const auto compositor =
            connection.bind<wl_compositor>(wl_compositor_interface, versionWithScale))
        surface_.reset(wl_compositor_create_surface(compositor.get()));
}

void Cursor::load(int scale) {
    scale_ = scale;
    const auto arrow =
        CursorTheme::arrow(xdg::IconTheme::userFolders().themes, themeName(), themeSize() * scale);
    image_ = nullptr;
    if (!arrow)
        return;
    image_ = SharedImage::make(*memory_, multipleOf(scale, arrow->picture.size()));
    if (!image_)
        return;
    hotspot_ = arrow->hotspot;
    xdg::Pixels::copy(xdg::Pixels::canvas(image_->image()),
                      xdg::Pixels::pieceOf(arrow->picture, {0, 0}), image_->image().rect());
}

void Cursor::show(wl_pointer& pointer, std::uint32_t serial, double pixelsPerPoint) {
    if (!memory_ || !surface_)
        return;
    const int scale = static_cast<int>(std::ceil(pixelsPerPoint));
    if (scale != scale_)
        load(scale);
    if (!image_)
        return;
    wl_pointer_set_cursor(&pointer, serial, surface_.get(), hotspot_.x() / scale_,
                          hotspot_.y() / scale_);
    wl_surface_set_buffer_scale(surface_.get(), scale_);
    wl_surface_attach(surface_.get(), image_->buffer(), 0, 0);
    wl_surface_damage(surface_.get(), 0, 0, image_->image().width(), image_->image().height());
    wl_surface_commit(surface_.get());
}

}
