#include "Icons/IconTheme.hpp"

#include "Files/BoundedFile.hpp"

#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <deque>
#include <filesystem>
#include <set>
#include <utility>

namespace vireline::x11 {
namespace {

constexpr std::string_view lastTheme = "hicolor";
constexpr std::size_t maximumIndexBytes = 1U << 20U;
/// Chains of themes are short; a crafted one could go on.
constexpr std::size_t maximumThemes = 32;
/// Sides looked for are few: two sizes for each scale of a display.
constexpr std::size_t maximumSearches = 16;
constexpr std::array<std::string_view, 3> extensions{".png", ".svg", ".xpm"};

bool isReadable(const std::string& path) {
    return ::access(path.c_str(), R_OK) == 0;
}

/// The names in a folder; none if it cannot be read.
std::set<std::string, std::less<>> namesIn(const std::string& folder) {
    std::set<std::string, std::less<>> names;
    std::error_code error;
    for (std::filesystem::directory_iterator it{folder, error};
         !error && it != std::filesystem::end(it); it.increment(error)) {
        names.insert(it->path().filename().string());
    }
    return names;
}

/// A name that cannot lead to another folder.
bool isPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && !name.contains('/') &&
           !name.contains('\0');
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

std::optional<std::string> IconTheme::find(std::string_view icon, int side) const {
    if (!isPlainName(icon))
        return std::nullopt;
    for (const Search& theme : searches(side)) {
        for (const std::string& folder : theme) {
            if (auto path = pictureIn(folder, icon))
                return path;
        }
    }
    for (const std::string& folder : folders_.pictures) {
        if (auto path = pictureIn(folder, icon))
            return path;
    }
    return std::nullopt;
}

/// Each theme right before its parents, and each once, so that loops end.
const std::vector<IconTheme::Theme>& IconTheme::themes() const {
    if (themes_)
        return *themes_;
    themes_.emplace();
    std::set<std::string, std::less<>> seen{std::string{lastTheme}};
    std::deque<std::string> waiting{name_};
    const auto take = [&](const std::string& name) {
        std::vector<std::string> parents;
        if (auto theme = load(name, parents))
            themes_->push_back(std::move(*theme));
        waiting.insert(waiting.begin(), parents.begin(), parents.end());
    };
    while (!waiting.empty() && seen.size() < maximumThemes) {
        const std::string name = std::move(waiting.front());
        waiting.pop_front();
        if (isPlainName(name) && seen.insert(name).second)
            take(name);
    }
    take(std::string{lastTheme});
    return *themes_;
}

std::optional<IconTheme::Theme> IconTheme::load(std::string_view name,
                                                std::vector<std::string>& parents) const {
    Theme theme;
    std::optional<IconThemeIndex> index;
    std::set<std::string, std::less<>> tops;
    for (const std::string& folder : folders_.themes) {
        const std::string root = folder + '/' + std::string{name};
        auto names = namesIn(root);
        if (names.empty())
            continue;
        theme.roots.push_back(root);
        if (!index && names.contains("index.theme")) {
            if (const auto text = BoundedFile::read(root + "/index.theme", maximumIndexBytes))
                index =
                    IconThemeIndexes::parse({text->data(), static_cast<std::size_t>(text->size())});
        }
        tops.merge(names);
    }
    if (!index)
        return std::nullopt;
    parents = std::move(index->parents);
    // An index names hundreds of folders of which most installations have few.
    std::ranges::copy_if(index->folders, std::back_inserter(theme.folders),
                         [&](const IconFolder& folder) {
                             return tops.contains(folder.path.substr(0, folder.path.find('/')));
                         });
    return theme;
}

const std::vector<IconTheme::Search>& IconTheme::searches(int side) const {
    const auto known = searches_.find(side);
    if (known != searches_.end())
        return known->second;
    if (searches_.size() >= maximumSearches)
        searches_.clear();
    std::vector<Search> all;
    for (const Theme& theme : themes()) {
        Search search;
        for (const IconFolder& folder : IconThemeIndexes::bestFirst(theme.folders, side)) {
            for (const std::string& root : theme.roots) {
                std::string path = root + '/' + folder.path;
                if (isReadable(path))
                    search.push_back(std::move(path));
            }
        }
        all.push_back(std::move(search));
    }
    return searches_.emplace(side, std::move(all)).first->second;
}

}
