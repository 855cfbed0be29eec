/// A named symbol in one colour of the palette or of a tone, optionally on a tinted ground.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <QWidget>
#include <string>

namespace vireline::x11 {

class Symbols;

class SymbolView final : public QWidget {
public:
    enum class Look {
        plain,  ///< in its tone
        tinted, ///< in the accent colour on a ground of a paler one
    };

    SymbolView(const Symbols& symbols, int symbolSide, Look look, QWidget* parent);

    void show(const std::string& name, StatusLine::Tone tone);

private:
    void paintEvent(QPaintEvent* event) override;

    const Symbols& symbols_;
    int symbolSide_;
    Look look_;
    std::string name_;
    StatusLine::Tone tone_ = StatusLine::Tone::neutral;
};

}
