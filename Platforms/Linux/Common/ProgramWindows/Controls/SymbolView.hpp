/// A named symbol in a palette colour or a tone, optionally on a tinted background.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <QWidget>
#include <string>

namespace vireline::xdg {

class Symbols;

class SymbolView final : public QWidget {
public:
    enum class Look {
        plain,  ///< in the colour of its tone
        tinted, ///< in the accent colour, on a paler shade of it
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
