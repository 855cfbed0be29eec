#include "ProgramWindows/Controls/StatusLineView.hpp"

#include "ProgramWindows/Controls/PushButton.hpp"
#include "ProgramWindows/Controls/SymbolView.hpp"
#include "ProgramWindows/Controls/TextLabel.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"

#include <QEvent>
#include <QHBoxLayout>
#include <memory>

namespace vireline::xdg {
namespace {

constexpr int spacing = 8;
constexpr int symbolSide = 17;

}

StatusLineView::StatusLineView(const Symbols& symbols, std::function<void()> onButton,
                               QWidget* parent)
    : QWidget(parent)
    , onButton_(std::move(onButton))
    , symbol_(std::make_unique<SymbolView>(symbols, symbolSide, SymbolView::Look::plain, this)
                  .release())
    , text_(TextLabel::make(TextLabel::Kind::body, {}, this)) {
    auto row = std::make_unique<QHBoxLayout>();
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    row->addWidget(symbol_, 0, Qt::AlignVCenter);
    row->addWidget(text_, 1, Qt::AlignVCenter);
    setLayout(row.release());
}

void StatusLineView::present(const StatusLine& line) {
    line_ = line;
    symbol_->setVisible(!line.symbol.empty());
    symbol_->show(line.symbol, line.symbolTone);
    text_->setText(QString::fromStdString(line.text));
    colourText();
    if (!line.button.empty() && button_ == nullptr) {
        button_ = std::make_unique<PushButton>(QString::fromStdString(line.button),
                                               PushButton::Look::compact, this)
                      .release();
        QObject::connect(button_, &QAbstractButton::clicked, this, [this] { onButton_(); });
        static_cast<QHBoxLayout*>(layout())->addWidget(button_, 0, Qt::AlignVCenter);
    }
    if (button_ != nullptr) {
        button_->setText(QString::fromStdString(line.button));
        button_->setVisible(!line.button.empty());
    }
}

void StatusLineView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        colourText();
    QWidget::changeEvent(event);
}

void StatusLineView::colourText() {
    QPalette colours = text_->palette();
    const QColor wanted = WindowPalette::tone(palette(), line_.textTone);
    if (colours.color(text_->foregroundRole()) == wanted)
        return;
    colours.setColor(text_->foregroundRole(), wanted);
    text_->setPalette(colours);
}

}
