/// The applications installed on this desktop: an index of all desktop entries, built when it is
/// first asked for and again after an applications folder changed.
#pragma once

#include "Applications/Entries/DesktopEntry.hpp"
#include "Applications/Entries/DesktopEntryIndex.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/ApplicationCatalog.hpp"
#include "Platform/RunLoop.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vireline::x11 {

class DesktopEntryCatalog final : public ApplicationCatalog {
public:
    /// Where the entries are, and in which languages they are read.
    struct Sources {
        /// Applications folders; an entry of an earlier one stands for those of the same ID behind.
        std::vector<FileURL> folders;
        std::vector<std::string> languages;

        bool operator==(const Sources&) const = default;
    };

    /// As this user's environment says.
    [[nodiscard]] static Sources userSources();

    /// Changes are noticed where the user's environment has its applications folders.
    explicit DesktopEntryCatalog(RunLoop& runLoop, Sources sources = userSources());
    DesktopEntryCatalog(const DesktopEntryCatalog&) = delete;
    DesktopEntryCatalog& operator=(const DesktopEntryCatalog&) = delete;
    DesktopEntryCatalog(DesktopEntryCatalog&&) = delete;
    DesktopEntryCatalog& operator=(DesktopEntryCatalog&&) = delete;
    ~DesktopEntryCatalog() override;

    /// Nothing for an entry whose program is not there.
    [[nodiscard]] std::optional<FileURL> urlForBundleID(const std::string& bundleID) const override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& url) const override;
    [[nodiscard]] std::string displayName(const FileURL& url) const override;
    [[nodiscard]] std::string bundleExtension() const override { return "desktop"; }
    /// Empty when no program opens folders.
    [[nodiscard]] FileManager fileManager() const override;
    /// Ten, the installed ones first; those of the user's choice before common ones. What is hidden
    /// from menus, runs in a terminal or has no icon counts as not installed.
    [[nodiscard]] std::vector<std::string> wellKnownBundleIDs() const override;

    /// All installed entries as they stand now. The reference holds until the next call.
    [[nodiscard]] const DesktopEntryIndex& index() const;

    /// The entry in the file at `url`, wherever that is; nothing if it holds none that is valid.
    [[nodiscard]] std::optional<DesktopEntry> entryAt(const FileURL& url) const;

    /// Whether an entry's icon leads to a picture; every icon counts as one that does while this is
    /// not set. Entries whose icon does not are no well-known apps.
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
    Sources sources_;
    mutable std::optional<DesktopEntryIndex> index_;
    mutable std::optional<FileManager> fileManager_;
    /// Paths that the log has named as no valid entries.
    mutable std::set<std::string> skipped_;
    std::unique_ptr<FolderWatch> watch_;
    Timer announcement_;
    CallbackList<> changes_;
    Lifetime lifetime_;
};

}
