#include "Applications/DesktopEntryCatalog.hpp"

#include "Applications/Entries/DesktopEntryFiles.hpp"
#include "Applications/Entries/WellKnownApplications.hpp"
#include "Files/BoundedFile.hpp"
#include "Files/Log/StartLog.hpp"
#include "GLib/GLibHandles.hpp"
#include "Text/PlainText.hpp"

#include <gio/gdesktopappinfo.h>

#include <string_view>

namespace vireline::xdg {
namespace {

/// Installing a package changes a folder many times in quick succession.
constexpr double settlingSeconds = 0.5;

/// Limit on the invalid files that are remembered and logged.
constexpr std::size_t maximumSkipped = 1000;

using GString = GLibHandle<char, g_free>;

/// The ID of the program that opens content of this type; empty if there is none.
std::string defaultHandler(std::string_view contentType) {
    const GObjectHandle<GAppInfo> info{
        g_app_info_get_default_for_type(std::string{contentType}.c_str(), FALSE)};
    const char* id = info ? g_app_info_get_id(info.get()) : nullptr;
    return id == nullptr ? std::string{} : DesktopEntries::idFor(id);
}

bool isInPath(const std::string& program) {
    return GString{g_find_program_in_path(program.c_str())} != nullptr;
}

/// Whether the program that the entry starts is installed.
bool isStartable(const DesktopEntry& entry) {
    if (!entry.tryExec.empty() && !isInPath(entry.tryExec))
        return false;
    if (entry.dBusActivatable)
        return true;
    const auto words = AppCommands::words(entry.exec);
    return !words.empty() && isInPath(words.front());
}

}

/// GIO's notification that an applications folder changed. GIO sends it only once after each query
/// about an application, so it has to be re-armed.
class DesktopEntryCatalog::FolderWatch : private NonCopyable {
public:
    explicit FolderWatch(DesktopEntryCatalog& catalog)
        : monitor_(g_app_info_monitor_get())
        , handler_(g_signal_connect(monitor_.get(), "changed", G_CALLBACK(changed), &catalog)) {}
    ~FolderWatch() { g_signal_handler_disconnect(monitor_.get(), handler_); }

    /// Re-arms the notification: any query does, and for an app that does not exist it reads no
    /// entry.
    static void arm() {
        const GObjectHandle<GDesktopAppInfo> none{g_desktop_app_info_new("none.desktop")};
    }

private:
    static void changed(GAppInfoMonitor*, gpointer catalog) {
        static_cast<DesktopEntryCatalog*>(catalog)->noteChange();
    }

    GObjectHandle<GAppInfoMonitor> monitor_;
    gulong handler_;
};

std::vector<FileURL> DesktopEntryCatalog::userFolders() {
    std::vector<FileURL> folders;
    const auto addFolder = [&folders](const char* dataFolder) {
        if (g_path_is_absolute(dataFolder) != FALSE)
            folders.push_back(FileURL::fromPath(dataFolder).appending("applications"));
    };
    addFolder(g_get_user_data_dir());
    for (const char* const* folder = g_get_system_data_dirs(); *folder != nullptr; ++folder)
        addFolder(*folder);
    return folders;
}

DesktopEntryCatalog::DesktopEntryCatalog(RunLoop& runLoop, std::vector<FileURL> folders)
    : runLoop_(runLoop)
    , folders_(std::move(folders))
    , watch_(std::make_unique<FolderWatch>(*this)) {}

DesktopEntryCatalog::~DesktopEntryCatalog() = default;

const DesktopEntryIndex& DesktopEntryCatalog::index() const {
    if (!index_) {
        // Armed before reading, so that no change is missed in between.
        FolderWatch::arm();
        index_.emplace(
            DesktopEntryFiles::scan(folders_, [this](const auto& path) { noteSkipped(path); }));
    }
    return *index_;
}

std::optional<FileURL> DesktopEntryCatalog::urlForBundleID(const std::string& bundleID) const {
    const IndexedEntry* found = index().find(bundleID);
    if (found == nullptr || !isStartable(found->entry))
        return std::nullopt;
    return found->entry.url();
}

bool DesktopEntryCatalog::isInstalled(const std::string& bundleID) const {
    return urlForBundleID(bundleID).has_value();
}

/// Whether this is an app with an icon that a user would start from a menu.
bool DesktopEntryCatalog::isOrdinary(const std::string& bundleID) const {
    if (bundleID.empty() || !isInstalled(bundleID) || WellKnownApplications::isHelper(bundleID))
        return false;
    const DesktopEntry& entry = index().find(bundleID)->entry;
    return !entry.noDisplay && !entry.terminal && !entry.icon.empty() &&
           (!hasIcon || hasIcon(entry.icon));
}

std::optional<std::string> DesktopEntryCatalog::bundleIdentifier(const FileURL& url) const {
    const auto entry = entryAt(url);
    return entry ? std::optional{entry->id} : std::nullopt;
}

std::string DesktopEntryCatalog::displayName(const FileURL& url) const {
    if (const auto entry = entryAt(url))
        return entry->name;
    const GString name{g_filename_display_name(url.lastPathComponent().c_str())};
    return PlainText::clean(name.get());
}

ApplicationCatalog::FileManager DesktopEntryCatalog::fileManager() const {
    if (fileManager_)
        return *fileManager_;
    const auto& role = WellKnownApplications::roles().front();
    const std::string handler = defaultHandler(role.contentType);
    std::string id = handler;
    if (!isOrdinary(handler)) {
        id = WellKnownApplications::firstInstalled(
            role.commonIDs, [this](const std::string& common) { return isOrdinary(common); });
    }
    // A handler that is hidden from menus is better than no file manager.
    if (id.empty() && isInstalled(handler))
        id = handler;
    const IndexedEntry* found = index().find(id);
    fileManager_ = FileManager{.bundleID = id, .name = found == nullptr ? "" : found->entry.name};
    return *fileManager_;
}

std::vector<std::string> DesktopEntryCatalog::wellKnownBundleIDs() const {
    return WellKnownApplications::choose(
        [this](std::string_view contentType) {
            const bool isFolder = contentType == WellKnownApplications::roles().front().contentType;
            return isFolder ? fileManager().bundleID : defaultHandler(contentType);
        },
        [this](const std::string& id) { return isInstalled(id); },
        [this](const std::string& id) { return isInstalled(id) && !isOrdinary(id); });
}

std::optional<DesktopEntry> DesktopEntryCatalog::entryAt(const FileURL& url) const {
    if (!url.path().ends_with(DesktopEntries::extension))
        return std::nullopt;
    // Read from disk even if the index has the entry: the two may differ until the change is
    // announced.
    auto entry = DesktopEntryFiles::read(url.path(), DesktopEntryFiles::idOf(url.path(), folders_),
                                         [this](const auto& path) { noteSkipped(path); });
    if (entry && (entry->hidden || !PlainText::isClean(entry->id)))
        return std::nullopt;
    return entry;
}

std::vector<ApplicationCatalog::Action> DesktopEntryCatalog::actions(const FileURL& url) const {
    std::vector<Action> offered;
    if (!url.path().ends_with(DesktopEntries::extension))
        return offered;
    const auto text = BoundedFile::read(url.path(), DesktopEntryFiles::maximumBytes);
    if (!text)
        return offered;
    auto actions = DesktopEntries::actions(*text);
    offered.reserve(actions.size());
    for (auto& [id, name, icon] : actions)
        offered.push_back({std::move(id), std::move(name), std::move(icon)});
    return offered;
}

Subscription DesktopEntryCatalog::observeChanges(std::function<void()> handler) {
    return changes_.add(std::move(handler));
}

/// Entries are read again after each change of an applications folder, so each file is logged only
/// once.
void DesktopEntryCatalog::noteSkipped(const std::string& path) const {
    if (skipped_.size() < maximumSkipped && skipped_.insert(path).second)
        logOnceStarted("ignored desktop entry: " + PlainText::clean(path, 4096));
}

void DesktopEntryCatalog::noteChange() {
    index_.reset();
    fileManager_.reset();
    announcement_ = runLoop_.after(settlingSeconds, lifetime_.guard([this] { changes_.notify(); }));
}

}
