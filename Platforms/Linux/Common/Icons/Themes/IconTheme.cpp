#include "Icons/Themes/IconTheme.hpp"

#include "Files/BoundedFile.hpp"

#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <deque>
#include <filesystem>
#include <functional>
#include <set>
#include <utility>

namespace vireline::xdg {
namespace {

constexpr std::string_view lastTheme = "hicolor";
constexpr std::size_t maximumIndexBytes = 1U << 20U;
/// Limits the chain of parent themes; real ones are short.
constexpr std::size_t maximumThemes = 32;
constexpr std::array<std::string_view, 3> extensions{".png", ".svg", ".xpm"};

using Names = std::set<std::string, std::less<>>;

bool isReadable(const std::string& path) {
    return ::access(path.c_str(), R_OK) == 0;
}

/// The names of a folder's entries; empty if it cannot be read.
Names namesIn(const std::string& folder) {
    Names names;
    std::error_code error;
    for (std::filesystem::directory_iterator it{folder, error};
         !error && it != std::filesystem::end(it); it.increment(error)) {
        names.insert(it->path().filename().string());
    }
    return names;
}

/// Whether the name cannot escape its folder.
bool isPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && !name.contains('/') &&
           !name.contains('\0');
}

/// The top-level folder of a theme's folder.
std::string_view topOf(std::string_view folder) {
    return folder.substr(0, folder.find('/'));
}

std::optional<std::string> pictureIn(const std::string& folder, std::string_view icon) {
    std::string path = folder + '/';
    path += icon;
    const std::size_t stem = path.size();
    for (const std::string_view extension : extensions) {
        path.resize(stem);
        path += extension;
        if (isReadable(path))
            return path;
    }
    return std::nullopt;
}

}

IconTheme::Folders IconTheme::userFolders() {
    Folders folders;
    folders.themes.push_back(std::string{g_get_home_dir()} + "/.icons");
    folders.themes.push_back(std::string{g_get_user_data_dir()} + "/icons");
    for (const char* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder) {
        folders.themes.push_back(std::string{*folder} + "/icons");
        folders.pictures.push_back(std::string{*folder} + "/pixmaps");
    }
    return folders;
}

bool IconTheme::isInstalled(const Folders& folders, std::string_view name) {
    return isPlainName(name) &&
           std::ranges::any_of(folders.themes, [name](const std::string& folder) {
               return isReadable(folder + '/' + std::string{name} + "/index.theme");
           });
}

IconTheme::IconTheme(Folders folders, std::string name)
    : folders_(std::move(folders)), name_(std::move(name)) {}

/// Caches can be out of date although they look current, so an icon that no cache has is also
/// searched for in the folders.
std::optional<std::string> IconTheme::find(std::string_view icon, int side) const {
    if (!isPlainName(icon))
        return std::nullopt;
    if (auto path = search(icon, side, true))
        return path;
    if (auto path = search(icon, side, false))
        return path;
    for (const std::string& folder : folders_.pictures) {
        if (auto path = pictureIn(folder, icon))
            return path;
    }
    return std::nullopt;
}

std::optional<std::string> IconTheme::search(std::string_view icon, int side,
                                             bool trustsCaches) const {
    for (const Theme& theme : themes()) {
        std::vector<Candidate> candidates;
        for (const Root& root : theme.roots) {
            if (root.cache && trustsCaches) {
                addFromCache(theme, root, *root.cache, icon, candidates);
            } else {
                addFolders(theme, root, candidates);
            }
        }
        // Best candidates first, so that few files have to be checked.
        std::ranges::sort(candidates, [side](const Candidate& first, const Candidate& second) {
            if (IconThemeIndexes::isBetter(*first.folder, *second.folder, side))
                return true;
            // If two places have the same folder, the earlier place wins.
            return first.folder == second.folder && std::less{}(first.root, second.root);
        });
        for (const Candidate& candidate : candidates) {
            if (auto path = pictureIn(candidate.root->path + '/' + candidate.folder->path, icon))
                return path;
        }
    }
    return std::nullopt;
}

void IconTheme::addFromCache(const Theme& theme, const Root& root, const IconCache& cache,
                             std::string_view icon, std::vector<Candidate>& candidates) {
    for (const IconCache::Place& place : cache.find(icon)) {
        const auto folder = theme.folders.find(place.folder);
        if (folder != theme.folders.end())
            candidates.push_back({&folder->second, &root});
    }
}

void IconTheme::addFolders(const Theme& theme, const Root& root,
                           std::vector<Candidate>& candidates) {
    for (const auto& [name, folder] : theme.folders) {
        if (root.tops.contains(topOf(name)))
            candidates.push_back({&folder, &root});
    }
}

/// Each theme comes directly before its parents, and only once, so that loops terminate.
const std::vector<IconTheme::Theme>& IconTheme::themes() const {
    if (themes_)
        return *themes_;
    auto& themes = themes_.emplace();
    std::set<std::string, std::less<>> seen{std::string{lastTheme}};
    std::deque<std::string> waiting{name_};
    const auto take = [&](const std::string& name) {
        std::vector<std::string> parents;
        if (auto theme = load(name, parents))
            themes.push_back(std::move(*theme));
        waiting.insert(waiting.begin(), parents.begin(), parents.end());
    };
    while (!waiting.empty() && seen.size() < maximumThemes) {
        const std::string name = std::move(waiting.front());
        waiting.pop_front();
        if (isPlainName(name) && seen.insert(name).second)
            take(name);
    }
    take(std::string{lastTheme});
    return themes;
}

std::optional<IconTheme::Theme> IconTheme::load(std::string_view name,
                                                std::vector<std::string>& parents) const {
    Theme theme;
    std::optional<IconThemeIndex> index;
    Names tops;
    for (const std::string& folder : folders_.themes) {
        const std::string root = folder + '/' + std::string{name};
        Names names = namesIn(root);
        if (names.empty())
            continue;
        if (!index && names.contains("index.theme")) {
            if (const auto text = BoundedFile::read(root + "/index.theme", maximumIndexBytes))
                index = IconThemeIndexes::parse(*text);
        }
        tops.insert(names.begin(), names.end());
        theme.roots.push_back({root, std::move(names), IconCache::open(root)});
    }
    if (!index)
        return std::nullopt;
    parents = std::move(index->parents);
    // An index names hundreds of folders, of which most installations have only a few.
    for (const IconFolder& folder : index->folders) {
        if (tops.contains(topOf(folder.path)))
            theme.folders.emplace(folder.path, folder);
    }
    return theme;
}

}
