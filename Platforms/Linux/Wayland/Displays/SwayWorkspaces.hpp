/// Where sway puts the workspaces that it shows, which is what panels leave free of its outputs.
#pragma once

#include "Compositors/Sway/SwayConnection.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QRect>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vireline::wayland {

class SwayWorkspaces : private NonCopyable {
public:
    /// The shown workspaces' areas by the output's name, in the coordinates of the layout.
    using Areas = std::map<std::string, QRect>;

    /// Null if sway does not answer on that socket. Needs the event loop.
    [[nodiscard]] static std::unique_ptr<SwayWorkspaces> open(const std::string& socket,
                                                              std::function<void()> onChange);

    /// Reads the areas; `onChange` is called if they have changed.
    void refresh();

    /// nullopt if the output's area is not known yet.
    [[nodiscard]] std::optional<QRect> on(const std::string& output) const;

    /// The areas in sway's reply; empty if the reply is malformed.
    [[nodiscard]] static Areas parse(std::string_view json);

private:
    SwayWorkspaces(std::unique_ptr<SwayConnection> connection, std::function<void()> onChange);

    std::unique_ptr<SwayConnection> connection_;
    std::function<void()> onChange_;
    Areas areas_;
};

}
