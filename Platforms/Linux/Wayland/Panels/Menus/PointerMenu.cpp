#include "Panels/Menus/PointerMenu.hpp"

#include "Panels/Menus/DockMenu.hpp"
#include "Toolkit/MenuCorner.hpp"

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <utility>

namespace vireline::wayland {
namespace {

/// Time limit for the pointer to enter a cover, once covers are shown.
constexpr std::chrono::milliseconds pointerTimeout{300};
/// Time limit for the first cover to be shown.
constexpr std::chrono::milliseconds coverTimeout{1000};

}

PointerMenu::PointerMenu(WaylandConnection& connection, QMenu& menu, std::function<void()> onClosed)
    : context_(connection), menu_(&menu), onClosed_(std::move(onClosed)) {
    menu.installEventFilter(this);
    for (QScreen* const screen : QGuiApplication::screens()) {
        // Qt's placeholder while there is no display.
        if (!screen->name().isEmpty())
            cover(*screen);
    }
    QObject::connect(&noPointer_, &QTimer::timeout, this, [this] { openWithoutPointer(); });
    noPointer_.setSingleShot(true);
    noPointer_.start(coverTimeout);
}

PointerMenu::~PointerMenu() {
    if (menu_) {
        menu_->removeEventFilter(this);
        menu_->hide();
    }
}

void PointerMenu::cover(QScreen& screen) {
    covers_.push_back(std::make_unique<InvisibleSurface>(
        context_, screen, QRect{{0, 0}, screen.geometry().size()},
        InvisibleSurface::Events{
            .shown =
                [this] {
                    if (!popup_)
                        noPointer_.start(pointerTimeout);
                },
            .pointed = [this](InvisibleSurface& cover, QPoint place) { openAt(cover, place); },
            .pressed = [this] { closeSoon(); },
            .keyPressed = &DockMenu::pass,
            .closed =
                [this] {
                    popup_.reset();
                    closeSoon();
                },
        }));
}

void PointerMenu::openAt(InvisibleSurface& cover, QPoint place) {
    if (popup_ || !menu_ || menu_->isVisible() || cover.role() == nullptr)
        return;
    noPointer_.stop();
    cover.takeKeyboard();
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
