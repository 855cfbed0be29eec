#include "Toolkit/Appearance.hpp"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace vireline::xdg {
namespace {

bool isNamedDark(const std::string& theme) {
    return QString::fromStdString(theme).contains(QLatin1String{"dark"}, Qt::CaseInsensitive);
}

}

Appearance::Appearance(const std::string& widgetTheme) : hasDarkTheme_(isNamedDark(widgetTheme)) {
    qGuiApp->installEventFilter(this);
    isDark_.set(read());
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        isDark_.set(read());
    return false;
}

bool Appearance::read() const {
    const QPalette palette = QGuiApplication::palette();
    return hasDarkTheme_ || palette.color(QPalette::Window).lightness() <
                                palette.color(QPalette::WindowText).lightness();
}

}
