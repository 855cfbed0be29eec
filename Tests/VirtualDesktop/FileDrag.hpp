/// A drag out of another program's window, or under Wayland out of its panel.
#pragma once

#include "VirtualDesktop/VirtualDesktop.hpp"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

/// The files' URLs in the form of a URL list.
[[nodiscard]] std::string urlList(const std::vector<std::filesystem::path>& files);

class FileDrag {
public:
    struct Content {
        std::string text;
        std::string form = "text/uri-list";
        std::string action = "XdndActionCopy";
    };

    /// Shows the source in the screen's top-left corner and starts the drag. Under Wayland, it is
    /// at the top of the last monitor, which the drag cannot leave, and always a copy.
    FileDrag(VirtualDesktop& desktop, const Content& content);

    /// The drag source's report of the target's answer, such as "accepted XdndActionCopy",
    /// "refused" or "no-target" (no window under the pointer takes drops); empty if there is none.
    /// Under Wayland, it is the first answer that comes after the movement has begun, and a source
    /// does not hear that there is no target; see `moveAway`.
    [[nodiscard]] std::string moveTo(PixelPoint place);

    /// Moves to a place without a target; returns whether the source hears that there is none.
    /// Under Wayland, where only the outcome of dropping shows it, the result is true.
    [[nodiscard]] bool moveAway(PixelPoint place);

    /// The outcome of dropping: "done XdndActionCopy", "not done", "not dropped"; empty if there is
    /// none.
    [[nodiscard]] std::string drop();

    [[nodiscard]] ChildProcess& program() noexcept { return *program_; }

private:
    /// Starts the source and returns a place on it.
    [[nodiscard]] PixelPoint showWindow(const Content& content, const std::string& file);
    [[nodiscard]] PixelPoint showPanel(const Content& content, const std::string& file);
    /// Waits until the source has recorded that.
    void require(std::string_view line) const;

    /// Waits for a line that begins with `beginning`, and returns the rest of it.
    [[nodiscard]] std::string recorded(std::string_view beginning) const;

    VirtualDesktop& desktop_;
    std::filesystem::path record_;
    ChildProcess* program_ = nullptr;
};

}
