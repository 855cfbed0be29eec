/// A desktop entry of type Application: the keys that this program needs.
#pragma once

#include "Foundation/FileURL.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

struct DesktopEntry {
    /// The desktop-file ID without ".desktop".
    std::string id;
    /// Absolute path of the entry's file.
    std::string path;
    /// Localised, if the entry has a translation for the user's languages.
    std::string name;
    /// A name in the icon theme or an absolute path; empty if unset.
    std::string icon;
    /// The command line as written, including field codes; empty if the app can only be activated
    /// over D-Bus.
    std::string exec;
    std::string tryExec;
    std::string startupWMClass;
    /// Hidden from menus, but still used to identify windows.
    bool noDisplay = false;
    /// Means "deleted": this entry and later ones with the same ID count as not installed.
    bool hidden = false;
    bool dBusActivatable = false;
    /// Runs inside a terminal.
    bool terminal = false;
    /// Is itself a terminal emulator, in which other programs are started.
    bool isTerminalEmulator = false;
    /// nullopt if the entry does not say.
    std::optional<bool> startupNotify;

    [[nodiscard]] FileURL url() const { return FileURL::fromPath(path); }

    bool operator==(const DesktopEntry&) const = default;
};

namespace DesktopEntries {

/// File name extension of desktop entries, including the dot.
inline constexpr std::string_view extension = ".desktop";

/// Parses the text of an entry's file. Returns nullopt if it has no group "Desktop Entry", is of
/// another type than Application, has no Name, or has neither an Exec line nor D-Bus activation; a
/// hidden entry needs none of these.
[[nodiscard]] std::optional<DesktopEntry> parse(std::string_view text, std::string id,
                                                std::string path);

/// One of an entry's actions.
struct EntryAction {
    std::string id;
    /// The name and the icon are given as in `DesktopEntry`.
    std::string name;
    std::string icon;

    bool operator==(const EntryAction&) const = default;
};

/// Further actions are ignored.
inline constexpr std::size_t maximumActions = 20;

/// The actions of an entry in its order: those that have a name, and a command unless the app is
/// activated over D-Bus.
[[nodiscard]] std::vector<EntryAction> actions(std::string_view text);

/// The desktop-file ID, without its extension, of a file at `relativePath` in an applications
/// folder: slashes become dashes.
[[nodiscard]] std::string idFor(std::string_view relativePath);

}
}
