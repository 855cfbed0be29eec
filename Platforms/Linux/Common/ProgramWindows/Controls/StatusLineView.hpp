/// Shows a status line: symbol, text and button, each of them optional.
#pragma once

#include "Presentation/StatusLine.hpp"

#include <QLabel>
#include <QWidget>
#include <functional>

namespace vireline::xdg {

class PushButton;
class SymbolView;
class Symbols;

class StatusLineView final : public QWidget {
public:
    StatusLineView(const Symbols& symbols, std::function<void()> onButton, QWidget* parent);

    void present(const StatusLine& line);

private:
    void changeEvent(QEvent* event) override;
    void colourText();

    StatusLine line_;
    std::function<void()> onButton_;
    SymbolView* symbol_;
    QLabel* text_;
    PushButton* button_ = nullptr;
};

}
