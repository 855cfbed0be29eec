#include "ProgramWindows/Controls/SymbolView.hpp"

#include "ProgramWindows/Controls/Painting.hpp"
#include "ProgramWindows/Style/Symbols.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"

#include <cmath>

namespace vireline::xdg {
namespace {

/// Size of the tinted background, as a multiple of the symbol's side.
constexpr double groundSides = 1.8;

}

SymbolView::SymbolView(const Symbols& symbols, int symbolSide, Look look, QWidget* parent)
    : QWidget(parent), symbols_(symbols), symbolSide_(symbolSide), look_(look) {
    const int side = look == Look::tinted ? static_cast<int>(symbolSide * groundSides) : symbolSide;
    setFixedSize(side, side);
}

void SymbolView::show(const std::string& name, StatusLine::Tone tone) {
    name_ = name;
    tone_ = tone;
    update();
}

void SymbolView::paintEvent(QPaintEvent* /*event*/) {
    SmoothPainter painter{*this};
    QColor colour = WindowPalette::tone(palette(), tone_);
    if (look_ == Look::tinted) {
        constexpr int pale = 34;
        colour = palette().color(QPalette::Highlight);
        QColor ground = colour;
        ground.setAlpha(pale);
        Painting::fill(painter, rect(), width() / 4.0, ground);
    }
    const double ratio = devicePixelRatioF();
    QImage image =
        symbols_.image(name_, static_cast<int>(std::lround(symbolSide_ * ratio)), colour);
    image.setDevicePixelRatio(ratio);
    painter.drawImage(QPointF{(width() - symbolSide_) / 2.0, (height() - symbolSide_) / 2.0},
                      image);
}

}
