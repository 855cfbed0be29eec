/// What assistive technology is told of a program's windows: controls with their names, places and
/// states. The tests find controls here, as somebody does who does not see the screen.
#pragma once

#include "VirtualDesktop/BusClient.hpp"
#include "VirtualDesktop/PixelGeometry.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

/// Numbers of the protocol's.
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
    /// The bus that such things are told on.
    explicit AccessibleTree(const std::string& address) : bus_(address) {}

    /// The control of this name and role that is there now, in any window; nothing if there is
    /// none.
    [[nodiscard]] std::optional<BusObject> find(AccessibleRole role, const std::string& name) const;

    /// The control that takes the keys; nothing if none does.
    [[nodiscard]] std::optional<BusObject> focused() const;

    /// The names of all such controls that are visible, in the order of the windows.
    [[nodiscard]] std::vector<std::string> names(AccessibleRole role) const;

    /// On the screen. Empty when the control is gone.
    [[nodiscard]] PixelRect frame(const BusObject& control) const;
    [[nodiscard]] bool is(const BusObject& control, AccessibleState state) const;
    /// A slider's value in its own steps.
    [[nodiscard]] double value(const BusObject& slider) const;
    /// Empty when the control is gone.
    [[nodiscard]] std::string name(const BusObject& control) const;
    [[nodiscard]] std::string description(const BusObject& control) const;

    [[nodiscard]] std::vector<BusObject> children(const BusObject& parent) const;
    [[nodiscard]] BusObject parent(const BusObject& control) const;

    /// The names of what can be done to the control.
    [[nodiscard]] std::vector<std::string> actions(const BusObject& control) const;
    /// Does one of them; false if there is none of this name, or it fails.
    [[nodiscard]] bool act(const BusObject& control, const std::string& name) const;

private:
    using Visit = std::function<bool(const BusObject&)>;

    /// Visits everything visible below, a parent before its children, until a visit says stop.
    bool walk(const BusObject& from, const Visit& visit) const;
    bool walkAll(const Visit& visit) const;
    [[nodiscard]] AccessibleRole role(const BusObject& control) const;
    [[nodiscard]] std::string text(const BusObject& control, const char* property) const;

    BusClient bus_;
};

}
