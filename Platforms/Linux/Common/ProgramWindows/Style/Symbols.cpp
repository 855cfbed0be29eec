#include "ProgramWindows/Style/Symbols.hpp"

#include "Icons/ImageFile.hpp"
#include "ProgramWindows/Style/EmbeddedPicture.hpp"

#include <QPainter>
#include <algorithm>
#include <array>
#include <string_view>

namespace vireline::xdg {
namespace {

struct Known {
    std::string_view name;
    /// The icon themes' name for it.
    std::string_view inThemes;
};

constexpr std::array symbols{
    Known{"dock.rectangle", "preferences-desktop-dock-symbolic"},
    Known{"checkmark.circle.fill", "emblem-ok-symbolic"},
    Known{"cursorarrow.click", "input-mouse-symbolic"},
    Known{"rectangle.on.rectangle", "edit-copy-symbolic"},
    Known{"slider.horizontal.3", "preferences-other-symbolic"},
    Known{"arrow.left.arrow.right", "object-flip-horizontal-symbolic"},
    Known{"pin", "view-pin-symbolic"},
    Known{"macwindow.badge.plus", "window-new-symbolic"},
    Known{"arrow.right.doc.on.clipboard", "go-jump-symbolic"},
    Known{"rectangle.expand.vertical", "view-fullscreen-symbolic"},
};

/// The size for which themes draw icons of this kind.
constexpr int usualSide = 16;

/// Symbols are shapes, so their original colours are replaced.
void paintOver(QImage& image, const QColor& colour) {
    QPainter painter{&image};
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
}

}

QImage Symbols::image(const std::string& name, int side, const QColor& colour) const {
    const auto known = std::ranges::find(symbols, name, &Known::name);
    if (known == symbols.end() || side <= 0)
        return {};
    std::optional<QImage> image;
    if (themeIsComplete()) {
        if (const auto file = theme_.find(known->inThemes, side))
            image = ImageFile::load(*file, side);
    }
    if (!image)
        image = EmbeddedPicture::render(
            QStringLiteral("symbols/%1.svg").arg(QString::fromStdString(name)), side);
    paintOver(*image, colour);
    return *image;
}

bool Symbols::themeIsComplete() const {
    if (!themeIsComplete_) {
        themeIsComplete_ = std::ranges::all_of(symbols, [this](const Known& symbol) {
            return theme_.find(symbol.inThemes, usualSide).has_value();
        });
    }
    return *themeIsComplete_;
}

}
