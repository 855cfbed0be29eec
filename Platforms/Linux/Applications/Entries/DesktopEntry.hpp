/// One desktop entry of type Application: the keys that this program reads, and how they are read
/// from a file's text.
#pragma once

#include "Foundation/FileURL.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vireline::x11 {

struct DesktopEntry {
    /// The desktop-file ID without ".desktop".
    std::string id;
    /// The entry's own file; absolute.
    std::string path;
    /// In the user's language where the entry has one.
    std::string name;
    /// A name in the icon theme or an absolute path; empty if there is none.
    std::string icon;
    /// The command line as written, field codes included; empty if the app starts over D-Bus only.
    std::string exec;
    std::string tryExec;
    std::string startupWMClass;
    /// Not meant for menus; its windows are still its own.
    bool noDisplay = false;
    /// Stands for "deleted": the entry and all of the same ID behind it are not installed.
    bool hidden = false;
    bool dBusActivatable = false;
    /// Runs in a terminal.
    bool terminal = false;
    /// Is a terminal, in which other programs are started.
    bool isTerminalEmulator = false;
    /// Nothing when the entry does not say.
    std::optional<bool> startupNotify;

    [[nodiscard]] FileURL url() const { return FileURL::fromPath(path); }

    bool operator==(const DesktopEntry&) const = default;
};

namespace DesktopEntries {

/// The extension that makes a file an entry, with its dot.
inline constexpr std::string_view extension = ".desktop";

/// The entry in a file's `text`. Nothing when it has no group "Desktop Entry", is of another type
/// than Application, has no Name, or has neither an Exec line nor D-Bus activation; a hidden one
/// needs none of them. `languages` are the user's, the preferred first, such as "de_AT", "de".
[[nodiscard]] std::optional<DesktopEntry> parse(std::string_view text, std::string id,
                                                std::string path,
                                                std::span<const std::string> languages);

/// The desktop-file ID, without its extension, of the file at `relativePath` below an applications
/// folder: slashes become dashes.
[[nodiscard]] std::string idFor(std::string_view relativePath);

}
}
