/// Finds icons by name in the installed icon themes: the chosen one, those that it falls back on,
/// "hicolor", and the folders of pictures without a theme.
#pragma once

#include "Icons/IconCache.hpp"
#include "Icons/IconThemeIndex.hpp"

#include <map>
#include <optional>
#include <set>
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
    /// A folder of one theme; a theme can be spread over several places.
    struct Root {
        std::string path;
        /// What lies directly in it.
        std::set<std::string, std::less<>> tops;
        std::optional<IconCache> cache;
    };

    struct Theme {
        std::vector<Root> roots;
        /// Only those that exist in one of the roots, by their paths.
        std::map<std::string, IconFolder, std::less<>> folders;
    };

    /// Where a picture may be.
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
