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

    /// Asks `menu` for the item's menu now and whenever it is about to open. Each time it has the
    /// same commands in the same order; only how they look may differ. The user chooses one with
    /// the pointer or by its key.
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
