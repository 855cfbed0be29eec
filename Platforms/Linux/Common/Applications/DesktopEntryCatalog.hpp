/// The applications installed on this desktop: an index of all desktop entries, built on first use
/// and rebuilt after an applications folder changed.
#pragma once

#include "Applications/Entries/DesktopEntry.hpp"
#include "Applications/Entries/DesktopEntryIndex.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Applications/ApplicationCatalog.hpp"
#include "Platform/RunLoop.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vireline::xdg {

class DesktopEntryCatalog final : public ApplicationCatalog, private NonCopyable {
public:
    /// The applications folders of this user's environment.
    [[nodiscard]] static std::vector<FileURL> userFolders();

    /// Entries are looked for in `folders`; one in an earlier folder shadows those with the same ID
    /// in later ones. Watches the applications folders that the user's environment names.
    explicit DesktopEntryCatalog(RunLoop& runLoop, std::vector<FileURL> folders = userFolders());
    ~DesktopEntryCatalog() override;

    /// nullopt if the entry's program is not installed.
    [[nodiscard]] std::optional<FileURL> urlForBundleID(const std::string& bundleID) const override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& url) const override;
    [[nodiscard]] std::string displayName(const FileURL& url) const override;
    [[nodiscard]] std::string bundleExtension() const override { return "desktop"; }
    /// Empty if no program opens folders.
    [[nodiscard]] FileManager fileManager() const override;
    /// Ten IDs, the installed ones first, and the user's chosen handlers before common programs.
    /// Entries that are hidden from menus, run in a terminal or have no icon count as not
    /// installed.
    [[nodiscard]] std::vector<std::string> wellKnownBundleIDs() const override;

    [[nodiscard]] std::vector<Action> actions(const FileURL& url) const override;

    /// All currently installed entries. The reference is valid until the next call.
    [[nodiscard]] const DesktopEntryIndex& index() const;

    /// The entry in the file at `url`, anywhere on the disk; nullopt if it is not valid.
    [[nodiscard]] std::optional<DesktopEntry> entryAt(const FileURL& url) const;

    /// Whether an entry's icon can be found. While this is unset, every icon counts as found.
    /// Entries without an icon are never well-known apps.
    std::function<bool(const std::string& icon)> hasIcon;

    /// Announces that entries were added, changed or removed.
    [[nodiscard]] Subscription observeChanges(std::function<void()> handler);

private:
    class FolderWatch;

    void noteChange();
    void noteSkipped(const std::string& path) const;
    [[nodiscard]] bool isInstalled(const std::string& bundleID) const;
    [[nodiscard]] bool isOrdinary(const std::string& bundleID) const;

    RunLoop& runLoop_;
    std::vector<FileURL> folders_;
    mutable std::optional<DesktopEntryIndex> index_;
    mutable std::optional<FileManager> fileManager_;
    /// Paths already logged as invalid entries.
    mutable std::set<std::string> skipped_;
    std::unique_ptr<FolderWatch> watch_;
    Timer announcement_;
    CallbackList<> changes_;
    Lifetime lifetime_;
};

}
