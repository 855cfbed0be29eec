#include "ProgramWindows/QtProgramWindow.hpp"

#include "ProgramWindows/Style/ProgramIcon.hpp"
#include "ProgramWindows/Style/WindowPalette.hpp"
#include "Toolkit/Appearance.hpp"
#include "Toolkit/QtApplication.hpp"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace vireline::xdg {
namespace {

Qt::WindowFlags flags(const WindowStyle& style) {
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                            Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    flags.setFlag(Qt::WindowMinimizeButtonHint, style.isMiniaturizable);
    return flags;
}

QScreen& screenOfPointer() {
    QScreen* const screen = QGuiApplication::screenAt(QCursor::pos());
    return screen == nullptr ? *QGuiApplication::primaryScreen() : *screen;
}

/// The wanted size, reduced if a display is too low for it plus a frame.
QSize fitting(const Size& wanted) {
    constexpr int frame = 40;
    const QSize size{static_cast<int>(wanted.width), static_cast<int>(wanted.height)};
    const int room = screenOfPointer().availableGeometry().height() - frame;
    constexpr int least = 240;
    return {size.width(), std::clamp(room, std::min(least, size.height()), size.height())};
}

}

QtProgramWindow::QtProgramWindow(const WindowStyle& style, const WindowContext& context)
    : QWidget(nullptr, flags(style)), context_(context) {
    setWindowTitle(QString::fromStdString(style.title));
    setWindowIcon(ProgramIcon::icon());
    setFixedSize(fitting(style.contentSize));
    addActions(context_.application.mainMenuActions());
    appearance_ = context_.appearance.observe([this] { applyColours(); });
    applyColours();
    qApp->installEventFilter(this);
}

void QtProgramWindow::applyColours() {
    const QColor accent = QGuiApplication::palette().color(QPalette::Highlight);
    setPalette(WindowPalette::make(context_.appearance.isDark(), accent));
}

void QtProgramWindow::setContent(std::unique_ptr<QWidget> content) {
    auto column = std::make_unique<QVBoxLayout>();
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(content.release());
    setLayout(column.release());
}

void QtProgramWindow::closeOnEscape() {
    auto shortcut = std::make_unique<QShortcut>(QKeySequence{Qt::Key_Escape}, this);
    QObject::connect(shortcut.get(), &QShortcut::activated, this, [this] { close(); });
    static_cast<void>(shortcut.release());
}

void QtProgramWindow::placeInTheMiddle() {
    const QRect free = screenOfPointer().availableGeometry();
    move(free.center() - QPoint{width() / 2, height() / 2});
}

void QtProgramWindow::placeAt(QPoint corner) {
    // A part of the title bar large enough to grab.
    const QRect handle{corner, QSize{width(), 20}};
    constexpr int enough = 80;
    const auto screens = QGuiApplication::screens();
    const bool isReachable = std::ranges::any_of(screens, [&](const QScreen* screen) {
        return screen->geometry().intersected(handle).width() >= enough;
    });
    if (isReachable)
        move(corner);
    else
        placeInTheMiddle();
}

void QtProgramWindow::bringToFront() {
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    context_.bringToFront(*windowHandle());
    activateWindow();
}

void QtProgramWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    if (const auto closed = std::exchange(onClosed, nullptr))
        closed();
}

/// Focus rings are shown only while the keyboard is used.
bool QtProgramWindow::eventFilter(QObject* watched, QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress;
    const bool isButton = event->type() == QEvent::MouseButtonPress;
    if (!isKey && !isButton)
        return false;
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (widget == nullptr || widget->window() != this ||
        testAttribute(Qt::WA_KeyboardFocusChange) == isKey)
        return false;
    setAttribute(Qt::WA_KeyboardFocusChange, isKey);
    if (QWidget* const focus = focusWidget())
        focus->update();
    return false;
}

}
