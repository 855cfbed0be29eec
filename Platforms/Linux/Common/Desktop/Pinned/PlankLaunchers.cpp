#include "Desktop/Pinned/PlankLaunchers.hpp"

#include "Desktop/Pinned/PinnedApps.hpp"
#include "Files/Watching/PathFollower.hpp"
#include "Foundation/DevLog.hpp"

#include <algorithm>
#include <filesystem>

namespace vireline::xdg {
namespace {

using KeyFile = GLibHandle<GKeyFile, g_key_file_unref>;
using Text = GLibHandle<gchar, g_free>;

constexpr std::string_view extension = ".dockitem";

/// Launcher files have only three lines.
constexpr std::size_t maximumFileBytes = 64UL << 10U;
/// A sanity limit: no dock shows more, but the folder may contain anything.
constexpr std::size_t maximumLaunchers = 1'000;

/// The names of the launcher files, sorted, up to the limit.
std::vector<std::string> launcherFiles(const FileURL& folder) {
    std::vector<std::string> names;
    std::error_code error;
    std::filesystem::directory_iterator entry{folder.path(), error};
    while (!error && entry != std::filesystem::directory_iterator{} &&
           names.size() < maximumLaunchers) {
        std::string name = entry->path().filename().string();
        if (name.ends_with(extension))
            names.push_back(std::move(name));
        entry.increment(error);
    }
    std::ranges::sort(names);
    return names;
}

/// The URL in a launcher file; versions of Plank differ in the name of its group.
std::optional<std::string> launcherOf(const std::string& content) {
    const KeyFile file{g_key_file_new()};
    if (g_key_file_load_from_data(file.get(), content.c_str(), content.size(), G_KEY_FILE_NONE,
                                  nullptr) == 0)
        return std::nullopt;
    const Text group{g_key_file_get_start_group(file.get())};
    if (!group)
        return std::nullopt;
    const Text launcher{g_key_file_get_string(file.get(), group.get(), "Launcher", nullptr)};
    return launcher ? std::optional<std::string>{launcher.get()} : std::nullopt;
}

}

PlankLaunchers::PlankLaunchers(const FileSystem& fileSystem, const FileURL& configHome,
                               const SettingsStorage& storage)
    : fileSystem_(fileSystem)
    , folder_(configHome.appending("plank/dock1/launchers"))
    , storage_(storage) {}

bool PlankLaunchers::exists() const {
    return fileSystem_.exists(folder_) && order() != nullptr;
}

std::optional<PropertyList> PlankLaunchers::read() {
    PropertyList::Array tiles;
    for (const std::string& name : launchersInOrder()) {
        const auto content = fileSystem_.read(folder_.appending(name), maximumFileBytes);
        const auto launcher = content ? launcherOf(*content) : std::nullopt;
        if (launcher)
            tiles.push_back(PinnedApps::tile(*launcher));
    }
    return PropertyList{std::move(tiles)};
}

Subscription PlankLaunchers::observe(std::function<void()> handler) {
    struct Observation {
        Subscription folder;
        Subscription order;
    };
    auto observation = std::make_shared<Observation>();
    if (exists())
        observation->order = order()->observe(handler);
    auto following = followPath(folder_, [handler = std::move(handler)](PathEvents) { handler(); });
    if (following)
        observation->folder = *std::move(following);
    else
        DevLog::write("dock launchers not watched: " + following.error().description);
    return Subscription{std::move(observation)};
}

StringListSetting* PlankLaunchers::order() const {
    if (!order_) {
        order_ = StringListSetting::find(storage_, "net.launchpad.plank.dock.settings",
                                         "dock-items", "/net/launchpad/plank/docks/dock1/");
    }
    return order_->get();
}

/// Plank's order: the launchers named in the key first, then the others.
std::vector<std::string> PlankLaunchers::launchersInOrder() const {
    std::vector<std::string> rest = launcherFiles(folder_);
    std::vector<std::string> ordered;
    for (std::string& name : order()->get()) {
        const auto found = std::ranges::find(rest, name);
        if (found == rest.end())
            continue;
        rest.erase(found);
        ordered.push_back(std::move(name));
    }
    std::ranges::move(rest, std::back_inserter(ordered));
    return ordered;
}

}
