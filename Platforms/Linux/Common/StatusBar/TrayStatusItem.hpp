/// A status item wherever this desktop can show one: in a status notifier host, or, if there is
/// none, in the window system's tray. While the desktop has neither, the item is not shown.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/StatusBar.hpp"
#include "StatusBar/NotifierHosts.hpp"
#include "StatusBar/NotifierItem.hpp"
#include "StatusBar/SystemTray.hpp"
#include "Toolkit/PopUpMenu.hpp"

#include <array>
#include <functional>
#include <memory>

namespace vireline::xdg {

class Appearance;
class IconTheme;
class Symbols;

/// Must outlive the items.
struct StatusBarContext {
    /// May return null.
    std::function<std::unique_ptr<SystemTray>()> makeTray;
    /// Opens a menu at the pointer.
    PopUpMenu::Opener openAtPointer;
    Appearance& appearance;
    const Symbols& symbols;
    const IconTheme& theme;
};

class TrayStatusItem final : public StatusItem, private NonCopyable {
public:
    explicit TrayStatusItem(const StatusBarContext& context);

    void setImage(const std::string& symbol, const std::string& accessibilityDescription) override;
    void setMenu(std::function<Menu()> menu) override;
    [[nodiscard]] bool hasPlace() const override;

private:
    void update();
    void makeNotifierItem();
    void makeTrayIcon();
    [[nodiscard]] WindowID currentTray() const;
    void popUpMenu();
    [[nodiscard]] QImage picture(int side) const;

    const StatusBarContext& context_;
    StatusSymbol symbol_;
    std::function<Menu()> menu_;
    NotifierHosts hosts_;
    /// Null if the window system has none.
    std::unique_ptr<SystemTray> tray_;
    std::unique_ptr<NotifierItem> notifierItem_;
    std::unique_ptr<SystemTray::Icon> trayIcon_;
    /// The tray that the icon is in.
    WindowID dockedWith_ = WindowID::none;
    std::unique_ptr<PopUpMenu> popUpMenu_;
    std::array<Subscription, 3> observations_;
    Lifetime lifetime_;
};

}
