/// Finds icons by name in the installed icon themes: the chosen one, those that it falls back on,
/// "hicolor", and the folders of pictures without a theme.
#pragma once

#include "Icons/IconThemeIndex.hpp"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

class IconTheme {
public:
    /// Where themes and single pictures are installed; earlier folders hide later ones.
    struct Folders {
        std::vector<std::string> themes;
        std::vector<std::string> pictures;
    };

    /// As this user's environment says.
    [[nodiscard]] static Folders userFolders();

    /// Whether a theme of this name is installed.
    [[nodiscard]] static bool isInstalled(const Folders& folders, std::string_view name);

    /// Nothing is read before the first look-up. An unknown name leaves "hicolor".
    IconTheme(Folders folders, std::string name);

    /// The file of the picture best suited for a square of `side` pixels. The first theme that has
    /// the icon at all provides it. Nothing for a name that no theme knows.
    [[nodiscard]] std::optional<std::string> find(std::string_view icon, int side) const;

private:
    /// The folders that exist, in the order in which they are to be searched for one size.
    using Search = std::vector<std::string>;

    struct Theme {
        /// The theme's own folders: one theme can be spread over several places.
        std::vector<std::string> roots;
        /// Only those that exist in one of the roots.
        std::vector<IconFolder> folders;
    };

    [[nodiscard]] const std::vector<Theme>& themes() const;
    [[nodiscard]] std::optional<Theme> load(std::string_view name,
                                            std::vector<std::string>& parents) const;
    [[nodiscard]] const std::vector<Search>& searches(int side) const;

    Folders folders_;
    std::string name_;
    mutable std::optional<std::vector<Theme>> themes_;
    /// By side length.
    mutable std::map<int, std::vector<Search>> searches_;
};

}
