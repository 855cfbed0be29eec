#include "StatusBar/TrayStatusItem.hpp"

#include "Icons/Themes/IconTheme.hpp"
#include "ProgramWindows/Style/Symbols.hpp"
#include "Toolkit/Appearance.hpp"

#include <utility>

namespace vireline::xdg {
namespace {

constexpr const char* installedSymbol = "vireline-symbolic";

}

TrayStatusItem::TrayStatusItem(const StatusBarContext& context)
    : context_(context), tray_(context.makeTray()) {
    const auto changed = lifetime_.guard([this] { update(); });
    observations_ = {hosts_.observe(changed), tray_ ? tray_->observe(changed) : Subscription{},
                     context_.appearance.observe(lifetime_.guard([this] {
                         if (notifierItem_)
                             notifierItem_->pictureChanged();
                     }))};
}

void TrayStatusItem::setImage(const std::string& symbol,
                              const std::string& accessibilityDescription) {
    symbol_ = {symbol, accessibilityDescription};
}

void TrayStatusItem::setMenu(std::function<Menu()> menu) {
    menu_ = std::move(menu);
    update();
}

bool TrayStatusItem::hasPlace() const {
    return hosts_.state() == NotifierHosts::State::present || trayIcon_ != nullptr;
}

void TrayStatusItem::update() {
    if (hosts_.bus() != nullptr && !notifierItem_)
        makeNotifierItem();
    const bool belongsInTray =
        hosts_.state() == NotifierHosts::State::absent && currentTray() != WindowID::none;
    if (!belongsInTray)
        trayIcon_.reset();
    else if (!trayIcon_ || dockedWith_ != currentTray())
        makeTrayIcon();
}

/// Exported on every bus, even if no host exists yet.
void TrayStatusItem::makeNotifierItem() {
    constexpr int usualSide = 22;
    const bool isInstalled = context_.theme.find(installedSymbol, usualSide).has_value();
    notifierItem_ = std::make_unique<NotifierItem>(
        hosts_.bus(), NotifierItem::Content{symbol_, isInstalled ? installedSymbol : std::string{}},
        NotifierItem::Callbacks{.picture = [this](int side) { return picture(side); },
                                .menu = menu_,
                                .popUpMenu = [this] { popUpMenu(); }});
    hosts_.announceItem();
}

void TrayStatusItem::makeTrayIcon() {
    trayIcon_.reset();
    dockedWith_ = currentTray();
    trayIcon_ = tray_->makeIcon(
        symbol_.description,
        SystemTray::IconCallbacks{.picture =
                                      [this](int side, const QColor& colour) {
                                          return context_.symbols.image(symbol_.name, side, colour);
                                      },
                                  .clicked = [this] { popUpMenu(); }});
}

WindowID TrayStatusItem::currentTray() const {
    return tray_ ? tray_->current() : WindowID::none;
}

void TrayStatusItem::popUpMenu() {
    auto closed = [this](const MenuAction& chosen) {
        popUpMenu_.reset();
        if (chosen)
            chosen();
    };
    popUpMenu_ = std::make_unique<PopUpMenu>(menu_(), context_.openAtPointer,
                                             lifetime_.guard(std::move(closed)));
}

/// For hosts whose background colour is unknown: in the usual colour of symbols on such a desktop.
QImage TrayStatusItem::picture(int side) const {
    const QColor colour = context_.appearance.isDark() ? QColor{240, 240, 244} : QColor{60, 60, 66};
    return context_.symbols.image(symbol_.name, side, colour);
}

}
