/// Something that the user drags out of another program's window.
#pragma once

#include "VirtualDesktop/VirtualDesktop.hpp"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

/// As a list of their URLs.
[[nodiscard]] std::string urlList(const std::vector<std::filesystem::path>& files);

class FileDrag {
public:
    struct Content {
        std::string text;
        std::string form = "text/uri-list";
        std::string action = "XdndActionCopy";
    };

    /// Shows the program's window in the screen's first corner and begins to drag.
    FileDrag(VirtualDesktop& desktop, const Content& content);

    /// What the window there answers: "accepted XdndActionCopy", "refused", "nobody" …; empty if it
    /// does not.
    [[nodiscard]] std::string moveTo(PixelPoint place);

    /// What comes of letting go: "done XdndActionCopy", "not done", "not dropped"; empty if nothing
    /// does.
    [[nodiscard]] std::string drop();

    [[nodiscard]] ChildProcess& program() noexcept { return *program_; }

private:
    /// The rest of the line that begins so, once it is there.
    [[nodiscard]] std::string recorded(std::string_view beginning) const;

    VirtualDesktop& desktop_;
    std::filesystem::path record_;
    ChildProcess* program_;
};

}
