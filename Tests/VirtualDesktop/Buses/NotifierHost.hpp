/// Controls a panel with status notifier items from a test.
#pragma once

#include "VirtualDesktop/Buses/BusClient.hpp"

#include <string>
#include <vector>

namespace vireline::desktop {

class NotifierHost {
public:
    explicit NotifierHost(const std::string& busAddress) : bus_(busAddress) {}

    /// Whether the panel is running.
    [[nodiscard]] bool isThere() const;
    /// The number of items registered so far.
    [[nodiscard]] std::size_t itemCount() const;

    /// A text property of the item; empty if it has none.
    [[nodiscard]] std::string text(const char* property) const;
    [[nodiscard]] bool flag(const char* property) const;
    /// The number of the item's pictures.
    [[nodiscard]] std::size_t pictureCount() const;

    /// Opens the item's menu: "Settings…", "[x] Launch at Login", "---".
    [[nodiscard]] std::vector<std::string> openMenu() const;
    void choose(const std::string& label) const;
    /// Presses a key with Control while the menu is open.
    void press(const std::string& key) const;
    /// Activates the item, as hosts without menus do.
    void activate() const;
    /// Starts to show items, if it only kept the list before.
    void becomeHost() const;

private:
    [[nodiscard]] Variant property(const char* name) const;
    [[nodiscard]] Variant call(const char* method, GVariant* parameters) const;

    BusClient bus_;
};

}
