#include "Panels/PointerMenu.hpp"

#include "Toolkit/MenuCorner.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <utility>

namespace vireline::wayland {
namespace {

/// A compositor with a pointer has told by then where it is.
constexpr std::chrono::milliseconds pointerTimeout{300};

}

PointerMenu::PointerMenu(WaylandConnection& connection, WaylandScreens& screens,
                         xdg::Appearance& appearance, QMenu& menu, std::function<void()> onClosed)
    : context_(connection, screens, appearance), menu_(&menu), onClosed_(std::move(onClosed)) {
    menu.installEventFilter(this);
    for (QScreen* const screen : QGuiApplication::screens()) {
        // Qt's placeholder while there is no display.
        if (!screen->name().isEmpty())
            cover(*screen);
    }
    QObject::connect(&noPointer_, &QTimer::timeout, this, [this] { openWithoutPointer(); });
    noPointer_.setSingleShot(true);
    noPointer_.start(pointerTimeout);
}

PointerMenu::~PointerMenu() {
    if (menu_) {
        menu_->removeEventFilter(this);
        menu_->hide();
    }
}

void PointerMenu::cover(QScreen& screen) {
    covers_.push_back(std::make_unique<ScreenCover>(
        context_, screen,
        ScreenCover::Events{
            [this](ScreenCover& cover, QPoint place) { openAt(cover, place); },
            [this] { closeSoon(); },
            [this](QKeyEvent& event) { pass(event); },
            [this] {
                popup_.reset();
                closeSoon();
            },
        }));
}

void PointerMenu::openAt(ScreenCover& cover, QPoint place) {
    if (popup_ || !menu_ || menu_->isVisible() || cover.role() == nullptr)
        return;
    noPointer_.stop();
    cover.role()->takeKeyboard(true);
    QScreen& screen = *cover.screen();
    const QPoint corner = xdg::MenuCorner::at(place, menu_->sizeHint(), screen.geometry());
    popup_ = std::make_unique<MenuPopup>(context_, *cover.role(), *menu_,
                                         MenuPopup::Place{screen, screen.geometry(), corner},
                                         [this] { closeSoon(); });
}

void PointerMenu::openWithoutPointer() {
    const auto shown =
        std::ranges::find_if(covers_, [](const auto& cover) { return cover->role() != nullptr; });
    if (shown == covers_.end())
        closeSoon();
    else
        openAt(**shown, (*shown)->geometry().center());
}

/// Compositors give the keyboard to the surface and not to its popup.
void PointerMenu::pass(QKeyEvent& event) {
    QWidget* const submenu = QApplication::activePopupWidget();
    if (submenu != nullptr)
        QCoreApplication::sendEvent(submenu, &event);
}

/// Queued, since neither the popup nor a cover can be destroyed from its own event.
void PointerMenu::closeSoon() {
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (menu_ && menu_->isVisible()) {
                menu_->close();
            } else if (const auto closed = std::exchange(onClosed_, nullptr)) {
                closed();
            }
        },
        Qt::QueuedConnection);
}

bool PointerMenu::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous())
        closeSoon();
    return QObject::eventFilter(watched, event);
}

}
