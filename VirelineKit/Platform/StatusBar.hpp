/// The place where the desktop shows small items of running programs: a menu bar or a tray.
#pragma once

#include "Presentation/Menu.hpp"

#include <cstddef>
#include <memory>
#include <string>

namespace vireline {

/// Who hears of an item's menu. Outlives the item.
class StatusItemListener {
public:
    virtual ~StatusItemListener() = default;

    /// The menu is about to open; what is changed here is what the user sees.
    virtual void menuNeedsUpdate(Menu& menu) = 0;

    /// The user chose an entry, by its index in the menu's entries or by its key.
    virtual void menuItemChosen(std::size_t index) = 0;
};

/// One item, as wide as high. Gone with this object. While the desktop has no place for it, it
/// waits for one.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    /// A named symbol, and what it is called for those who do not see it.
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
