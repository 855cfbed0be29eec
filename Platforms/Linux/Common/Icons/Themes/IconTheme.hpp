/// Finds icons by name in the installed icon themes: the chosen theme, the ones it inherits from,
/// "hicolor", and the folders of unthemed images.
#pragma once

#include "Icons/Themes/IconCache.hpp"
#include "Icons/Themes/IconThemeIndex.hpp"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

class IconTheme {
public:
    /// Where themes and unthemed images are installed; earlier folders shadow later ones.
    struct Folders {
        std::vector<std::string> themes;
        std::vector<std::string> pictures;
    };

    /// From this user's environment.
    [[nodiscard]] static Folders userFolders();

    /// Whether a theme of this name is installed.
    [[nodiscard]] static bool isInstalled(const Folders& folders, std::string_view name);

    /// Reads nothing before the first look-up. If the theme does not exist, only "hicolor" is used.
    IconTheme(Folders folders, std::string name);

    /// The image file best suited to a square of `side` pixels, from the first theme that has the
    /// icon at any size. nullopt if no theme has it.
    [[nodiscard]] std::optional<std::string> find(std::string_view icon, int side) const;

private:
    /// One folder of a theme; a theme can be installed in several places.
    struct Root {
        std::string path;
        /// The names of its direct entries.
        std::set<std::string, std::less<>> tops;
        std::optional<IconCache> cache;
    };

    struct Theme {
        std::vector<Root> roots;
        /// Only folders that exist in one of the roots, by path.
        std::map<std::string, IconFolder, std::less<>> folders;
    };

    /// Where the image may be.
    struct Candidate {
        const IconFolder* folder = nullptr;
        const Root* root = nullptr;
    };

    [[nodiscard]] const std::vector<Theme>& themes() const;
    [[nodiscard]] std::optional<Theme> load(std::string_view name,
                                            std::vector<std::string>& parents) const;
    [[nodiscard]] std::optional<std::string> search(std::string_view icon, int side,
                                                    bool trustsCaches) const;

    static void addFromCache(const Theme& theme, const Root& root, const IconCache& cache,
                             std::string_view icon, std::vector<Candidate>& candidates);
    static void addFolders(const Theme& theme, const Root& root,
                           std::vector<Candidate>& candidates);

    Folders folders_;
    std::string name_;
    mutable std::optional<std::vector<Theme>> themes_;
};

}
