/// A status item exported on the session bus: org.kde.StatusNotifierItem and its menu.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "StatusBar/NotifierMenu.hpp"
#include "StatusBar/StatusSymbol.hpp"

#include <QImage>
#include <functional>
#include <memory>
#include <string>

namespace vireline::xdg {

class NotifierItem {
public:
    struct Content {
        StatusSymbol symbol;
        /// The symbol's name in the icon theme, which the host tints itself; empty if the theme has
        /// none.
        std::string iconName;
    };
    struct Callbacks {
        /// Renders the symbol as a square of this many pixels, for hosts that do not use icon
        /// themes.
        std::function<QImage(int side)> picture;
        std::function<Menu()> menu;
        /// A host that shows no menus asks for the item's own.
        std::function<void()> popUpMenu;
    };

    NotifierItem(GDBusConnection* bus, Content content, Callbacks callbacks);

    /// Announces that the picture changed.
    void pictureChanged() const;

private:
    void call(const std::string& method, GDBusMethodInvocation* invocation) const;
    [[nodiscard]] GVariant* get(const std::string& property) const;
    [[nodiscard]] GVariant* pixmaps() const;

    Content content_;
    Callbacks callbacks_;
    NotifierMenu menu_;
    DBusObject object_;
};

}
