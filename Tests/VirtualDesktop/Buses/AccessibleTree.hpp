/// A program's windows as assistive technology sees them: controls with their names, frames and
/// states. Tests use it to locate controls.
#pragma once

#include "VirtualDesktop/Buses/BusClient.hpp"
#include "VirtualDesktop/Screen/PixelGeometry.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

/// Values from the protocol.
enum class AccessibleRole : std::uint32_t {
    checkBox = 7,
    frame = 23,
    label = 29,
    pushButton = 43,
    radioButton = 44,
    slider = 51,
};

enum class AccessibleState : std::uint32_t {
    checked = 4,
    enabled = 8,
    focused = 12,
    showing = 25,
    visible = 30,
};

class AccessibleTree {
public:
    /// `address` is that of the accessibility bus.
    explicit AccessibleTree(const std::string& address) : bus_(address) {}

    /// The existing control with this name and role, in any window; nullopt if there is none.
    [[nodiscard]] std::optional<BusObject> find(AccessibleRole role, const std::string& name) const;

    /// The control with keyboard focus; nullopt if there is none.
    [[nodiscard]] std::optional<BusObject> focused() const;

    /// The names of all visible controls with this role, in the order of the windows.
    [[nodiscard]] std::vector<std::string> names(AccessibleRole role) const;

    /// In screen coordinates. Empty if the control is gone.
    [[nodiscard]] PixelRect frame(const BusObject& control) const;
    [[nodiscard]] bool is(const BusObject& control, AccessibleState state) const;
    /// A slider's value in its own units.
    [[nodiscard]] double value(const BusObject& slider) const;
    /// Empty if the control is gone.
    [[nodiscard]] std::string name(const BusObject& control) const;
    [[nodiscard]] std::string description(const BusObject& control) const;

    [[nodiscard]] std::vector<BusObject> children(const BusObject& parent) const;
    [[nodiscard]] BusObject parent(const BusObject& control) const;

    /// The names of the control's actions.
    [[nodiscard]] std::vector<std::string> actions(const BusObject& control) const;
    /// Performs an action; returns false if there is none with this name, or if it fails.
    [[nodiscard]] bool act(const BusObject& control, const std::string& name) const;

private:
    using Visit = std::function<bool(const BusObject&)>;

    /// Visits everything visible below, parents before their children, until a visit returns true.
    bool walk(const BusObject& from, const Visit& visit) const;
    bool walkAll(const Visit& visit) const;
    [[nodiscard]] AccessibleRole role(const BusObject& control) const;
    [[nodiscard]] std::string text(const BusObject& control, const char* property) const;

    BusClient bus_;
};

}
