/// Decides which apps the docks show as pinned, the mirrored ones or the user's own list, and
/// carries out the user's edits of that list.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Platform.hpp"
#include "Settings/PreferencesStore.hpp"
#include "Sources/ListHistory.hpp"
#include "Sources/MirrorSource.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline {

/// An edit only writes the settings. It reaches the docks because the owner calls `emit` when the
/// settings change.
class AppSourceResolver : private NonCopyable {
public:
    AppSourceResolver(PreferencesStore& store, const Platform& platform);

    /// Delivers the current list, and from then on, while mirroring, every reading of the mirror.
    void start();

    /// Computes the pinned list and delivers it, even if it has not changed. In manual mode, an
    /// empty list is first filled from the mirror.
    void emit();

    /// Appends the app at `url`, unless it is not an app or is already in the list. While
    /// mirroring, this and `moveManualApp` first switch to the manual list.
    void addManualApp(const FileURL& url);

    /// Removes every entry of the app. Does nothing while mirroring, since the list then belongs to
    /// the desktop's dock.
    void removeManualApp(const std::string& bundleID);

    /// Moves the app's first entry to `toIndex`, clamped, among the entries that are shown. Entries
    /// that are hidden because their apps are gone do not count and keep their places.
    void moveManualApp(std::string_view bundleID, int toIndex);

    /// The title of the menu entry that undoes the last of the three edits above; nullopt if there
    /// is none, or if the list or its source has changed elsewhere since.
    [[nodiscard]] std::optional<std::string> undoTitle() const;
    /// Restores the list and the source mode as they were before that edit.
    void undo();

    /// Receives the pinned list.
    std::function<void(const std::vector<AppRef>&)> onChange;

private:
    [[nodiscard]] bool isMirroring() const;
    [[nodiscard]] std::vector<AppRef> mirrorList() const;
    [[nodiscard]] std::vector<AppRef> manualList() const;
    [[nodiscard]] bool isShown(const StoredApp& app) const;
    /// The indices of the shown entries in the manual list.
    [[nodiscard]] std::vector<std::ptrdiff_t> shownPlaces() const;
    /// The list entry for the app at `url`; nullopt if that is not an app.
    [[nodiscard]] std::optional<StoredApp> manualEntry(const FileURL& url) const;
    void setManualApps(std::vector<StoredApp> apps);

    /// Carries out an edit and records it. `change` returns the entry of the app that it changed;
    /// nullopt if the list stays as it is.
    void edit(ListEdit::Kind kind, const std::function<std::optional<StoredApp>()>& change);
    [[nodiscard]] std::optional<StoredApp> addToList(const FileURL& url);
    [[nodiscard]] std::optional<StoredApp> removeFromList(const std::string& bundleID);
    [[nodiscard]] std::optional<StoredApp> moveInList(std::string_view bundleID, int toIndex);

    /// Fills an empty manual list from the last reading of the mirror.
    void seedIfNeeded();

    /// Switches from mirroring to the manual list, filling that from the mirror if it is empty.
    /// Does nothing if it is still empty then.
    void adoptManualIfMirroring();

    PreferencesStore& store_;
    const ApplicationCatalog& catalog_;
    const FileSystem& fileSystem_;
    MirrorSource mirror_;
    std::vector<AppRef> lastMirror_;
    ListHistory history_;
    /// An edit may write the settings several times; only its result counts.
    bool isEditing_ = false;
    Lifetime lifetime_;
};

}
