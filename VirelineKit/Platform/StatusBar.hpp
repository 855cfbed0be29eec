/// The place where the desktop shows programs' status items: a menu bar or a tray.
#pragma once

#include "Presentation/Menu.hpp"

#include <cstddef>
#include <memory>
#include <string>

namespace vireline {

/// Receives the events of an item's menu. Must outlive the item.
class StatusItemListener {
public:
    virtual ~StatusItemListener() = default;

    /// The menu is about to open. Changes to `menu` show.
    virtual void menuNeedsUpdate(Menu& menu) = 0;

    /// The user chose the entry with this index, with the pointer or with its key equivalent.
    virtual void menuItemChosen(std::size_t index) = 0;
};

/// A square item, removed when this object is destroyed. While the desktop has no place for it, it
/// waits for one.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// A named symbol, and its description for assistive technology.
    virtual void setImage(const std::string& symbol,
                          const std::string& accessibilityDescription) = 0;

    virtual void setMenu(const Menu& menu) = 0;

    /// Whether the desktop has a place for it now.
    [[nodiscard]] virtual bool hasPlace() const = 0;
};

class StatusBar {
public:
    virtual ~StatusBar() = default;

    [[nodiscard]] virtual std::unique_ptr<StatusItem>
    makeStatusItem(StatusItemListener& listener) = 0;
};

}
