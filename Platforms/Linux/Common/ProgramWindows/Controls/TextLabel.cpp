#include "ProgramWindows/Controls/TextLabel.hpp"

#include <QApplication>
#include <memory>

namespace vireline::xdg::TextLabel {
namespace {

struct Look {
    double size;
    QFont::Weight weight;
    QPalette::ColorRole colour;
    bool wraps;
};

Look look(Kind kind) {
    switch (kind) {
    case Kind::title:
        return {1.9, QFont::Bold, QPalette::Text, true};
    case Kind::heading:
        return {1, QFont::DemiBold, QPalette::Text, false};
    case Kind::body:
        return {1, QFont::Normal, QPalette::Text, true};
    case Kind::caption:
        return {0.88, QFont::Normal, QPalette::PlaceholderText, true};
    case Kind::quiet:
        return {1.06, QFont::Normal, QPalette::PlaceholderText, true};
    }
    return {1, QFont::Normal, QPalette::Text, true};
}

}

QFont font(Kind kind) {
    const Look wanted = look(kind);
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * wanted.size);
    else
        font.setPixelSize(static_cast<int>(font.pixelSize() * wanted.size));
    font.setWeight(wanted.weight);
    return font;
}

QLabel* make(Kind kind, const QString& text, QWidget* parent) {
    const Look wanted = look(kind);
    auto label = std::make_unique<QLabel>(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setFont(font(kind));
    label->setForegroundRole(wanted.colour);
    label->setWordWrap(wanted.wraps);
    return label.release();
}

}
