/// Decides which apps the docks show as pinned, the mirrored or the user's own, and carries out the
/// user's edits of that list.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Platform.hpp"
#include "Settings/PreferencesStore.hpp"
#include "Sources/MirrorSource.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline {

/// Every edit is a write of the settings; it reaches the docks when the owner answers that change
/// with `emit`.
class AppSourceResolver {
public:
    AppSourceResolver(PreferencesStore& store, const Platform& platform);
    AppSourceResolver(const AppSourceResolver&) = delete;
    AppSourceResolver& operator=(const AppSourceResolver&) = delete;
    AppSourceResolver(AppSourceResolver&&) = delete;
    AppSourceResolver& operator=(AppSourceResolver&&) = delete;
    ~AppSourceResolver() = default;

    /// Delivers the list in force, and from now on every reading of the mirror while mirroring.
    void start();

    /// Computes the pinned list and delivers it, changed or not. In manual mode an empty list is
    /// filled from the mirror first.
    void emit();

    /// Appends the app at `url`, unless it is no app or in the list already. While mirroring, the
    /// list is adopted first, and so it is by a move.
    void addManualApp(const FileURL& url);

    /// Removes every entry of the app. Does nothing while mirroring: what is pinned is then not the
    /// program's to remove.
    void removeManualApp(const std::string& bundleID);

    /// Moves the app's first entry to `toIndex` among the entries that are shown, or to their
    /// nearer end. Entries that are hidden, as their apps are gone, do not count and stay where
    /// they are.
    void moveManualApp(std::string_view bundleID, int toIndex);

    /// Receives the pinned list.
    std::function<void(const std::vector<AppRef>&)> onChange;

private:
    [[nodiscard]] bool isMirroring() const;
    [[nodiscard]] std::vector<AppRef> mirrorList() const;
    [[nodiscard]] std::vector<AppRef> manualList() const;
    [[nodiscard]] bool isShown(const StoredApp& app) const;
    /// Where in the manual list the entries stand that are shown.
    [[nodiscard]] std::vector<std::ptrdiff_t> shownPlaces() const;
    /// What the list would hold for the app at `url`; nothing if that is no app.
    [[nodiscard]] std::optional<StoredApp> manualEntry(const FileURL& url) const;
    void setManualApps(std::vector<StoredApp> apps);

    /// Fills an empty manual list from the last reading of the mirror.
    void seedIfNeeded();

    /// Switches from mirroring to the manual list, if that holds anything. A list kept from an
    /// earlier time comes back as it was.
    void adoptManualIfMirroring();

    PreferencesStore& store_;
    const ApplicationCatalog& catalog_;
    const FileSystem& fileSystem_;
    MirrorSource mirror_;
    std::vector<AppRef> lastMirror_;
    Lifetime lifetime_;
};

}
