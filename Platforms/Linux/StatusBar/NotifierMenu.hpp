/// A status item's menu as the host of a status notifier shows it: com.canonical.dbusmenu on the
/// session bus.
#pragma once

#include "GLib/DBusObject.hpp"
#include "Presentation/Menu.hpp"

#include <cstdint>
#include <functional>
#include <string>

namespace vireline::x11 {

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
    /// Brings the menu up to date, tells the host what changed, and says whether anything did.
    bool refresh();
    void handle(std::int32_t id, const std::string& event);

    std::function<Menu()> source_;
    /// As it was shown last.
    Menu menu_;
    DBusObject object_;
};

/// The menu's content as the protocol has it.
namespace NotifierMenuLayout {

/// What tells an entry apart from a plain one; floating, of type a{sv}.
[[nodiscard]] GVariant* properties(const MenuItem& item);

/// The whole menu, or one entry; floating, of type (ia{sv}av). Identifiers are 0 for the menu and
/// an entry's index and one for the entry. An unknown one gives the menu.
[[nodiscard]] GVariant* layout(const Menu& menu, std::int32_t id, std::int32_t depth);

}
}
