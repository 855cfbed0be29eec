/// The place where the desktop shows programs' status items: a menu bar or a tray.
#pragma once

#include "Presentation/Menu.hpp"

#include <functional>
#include <memory>
#include <string>

namespace vireline {

/// A square item, removed when this object is destroyed. While the desktop has no place for it, it
/// waits for one.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// A named symbol, and its description for assistive technology.
    virtual void setImage(const std::string& symbol,
                          const std::string& accessibilityDescription) = 0;

    /// Calls `menu` for the item's menu, now and whenever the menu is about to open. It must always
    /// return the same commands in the same order; only titles and check marks may differ. The user
    /// chooses a command with the pointer or with its key equivalent.
    virtual void setMenu(std::function<Menu()> menu) = 0;

    /// Whether the desktop has a place for it now.
    [[nodiscard]] virtual bool hasPlace() const = 0;
};

class StatusBar {
public:
    virtual ~StatusBar() = default;

    [[nodiscard]] virtual std::unique_ptr<StatusItem> makeStatusItem() = 0;
};

}
