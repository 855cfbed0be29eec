/// A status item's menu for hosts of status notifiers: com.canonical.dbusmenu on the session bus.
#pragma once

#include "GLib/DBusObject.hpp"
#include "Presentation/Menu.hpp"

#include <cstdint>
#include <functional>
#include <string>

namespace vireline::xdg {

class NotifierMenu {
public:
    static constexpr const char* path = "/MenuBar";

    /// `menu` is asked for what to show before each showing.
    NotifierMenu(GDBusConnection* bus, std::function<Menu()> menu);

private:
    void call(const std::string& method, GVariant* parameters, GDBusMethodInvocation* invocation);
    void callAboutToShow(const std::string& method, GDBusMethodInvocation* invocation);
    void callEvents(const std::string& method, GVariant* parameters,
                    GDBusMethodInvocation* invocation);
    /// Updates the menu, tells the host what changed, and returns whether anything did.
    bool refresh();
    void handle(std::int32_t id, const std::string& event);

    std::function<Menu()> source_;
    /// The menu as the host last saw it.
    Menu menu_;
    DBusObject object_;
};

/// The menu's content in the protocol's format.
namespace NotifierMenuLayout {

/// The properties in which an entry differs from a plain one; floating, of type a{sv}.
[[nodiscard]] GVariant* properties(const MenuItem& item);

/// The whole menu, or one entry; floating, of type (ia{sv}av). ID 0 is the menu itself, and an
/// entry's ID is its index plus one. An unknown ID yields the menu.
[[nodiscard]] GVariant* layout(const Menu& menu, std::int32_t id, std::int32_t depth);

}
}
