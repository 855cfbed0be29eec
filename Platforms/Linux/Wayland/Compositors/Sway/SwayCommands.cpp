#include "Compositors/Sway/SwayCommands.hpp"

#include "Compositors/CommandNumber.hpp"

namespace vireline::wayland::SwayCommands {
namespace {

std::string criteria(std::int64_t window) {
    return "[con_id=" + std::to_string(window) + "] ";
}

/// sway keeps backslashes in a quoted name, so a quote inside of one cannot be escaped.
std::string quoted(std::string_view name) {
    const char quote = name.find('"') == std::string_view::npos ? '"' : '\'';
    return quote + std::string{name} + quote;
}

std::string toWorkspace(std::string_view workspace) {
    return "move container to workspace " + quoted(workspace);
}

std::string toPosition(Point corner) {
    return "move absolute position " + number(corner.x) + ' ' + number(corner.y);
}

/// Empty if the window is on the workspace that is shown at that point, otherwise the command that
/// brings it there.
std::string toOutputAt(const SwayWindow& window, Point point, const SwayTree& tree) {
    const SwayOutput* const output = tree.outputAt(point);
    if (output == nullptr || window.workspace == output->workspace)
        return {};
    return toWorkspace(output->workspace);
}

std::string joined(const std::string& first, const std::string& second) {
    return first.empty() ? second : first + ", " + second;
}

Point centre(const SwayWindow& window, Point corner) {
    return {corner.x + window.frame.width / 2, corner.y + window.frame.height / 2};
}

}

std::string focus(std::int64_t window) {
    return criteria(window) + "focus";
}

std::string close(std::int64_t window) {
    return criteria(window) + "kill";
}

std::string hide(std::int64_t window) {
    return criteria(window) + "move scratchpad";
}

std::string bringBack(const SwayWindow& before) {
    const std::string back = criteria(before.id) + toWorkspace(before.workspace);
    // Whatever comes out of the scratchpad floats.
    return before.isFloating ? back : back + ", floating disable";
}

std::optional<std::string> move(const SwayWindow& window, Point corner, const SwayTree& tree) {
    std::string command = toOutputAt(window, centre(window, corner), tree);
    if (window.isFloating)
        command = joined(command, toPosition(corner));
    if (command.empty())
        return std::nullopt;
    return criteria(window.id) + command;
}

std::optional<std::string> place(const SwayWindow& window, const Rect& frame,
                                 const SwayTree& tree) {
    std::string command = toOutputAt(window, frame.center(), tree);
    if (command.empty() && window.frame == frame)
        return std::nullopt;
    if (!window.isFloating)
        command = joined(command, "floating enable");
    // sway keeps a window's centre when it is resized, so the position comes last.
    command = joined(command, "resize set " + number(frame.width) + " px " + number(frame.height) +
                                  " px, " + toPosition(frame.origin()));
    return criteria(window.id) + command;
}

}
