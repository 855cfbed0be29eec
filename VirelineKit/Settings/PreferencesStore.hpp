/// Owns the one live settings record and its file: reads it once at start, saves every real change
/// before anybody acts on it.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Observable.hpp"
#include "Platform/FileSystem.hpp"
#include "Platform/UserFolders.hpp"
#include "Settings/Settings.hpp"

#include <functional>
#include <optional>

namespace vireline {

class PreferencesStore {
public:
    /// Longer files are damaged; a record with a thousand apps takes some 200 KiB.
    static constexpr std::size_t maximumFileBytes = std::size_t{16} * 1024 * 1024;

    /// Loads "preferences.json" from `directory`, by default the folder "Vireline" where programs
    /// keep this user's data. A file that is not there gives the default record; so does a damaged
    /// one, which is logged and left as it is until the first change.
    PreferencesStore(FileSystem& fileSystem, const UserFolders& folders,
                     const std::optional<FileURL>& directory = std::nullopt);
    PreferencesStore(const PreferencesStore&) = delete;
    PreferencesStore& operator=(const PreferencesStore&) = delete;
    PreferencesStore(PreferencesStore&&) = delete;
    PreferencesStore& operator=(PreferencesStore&&) = delete;
    ~PreferencesStore() = default;

    [[nodiscard]] const Settings& settings() const noexcept { return settings_.get(); }

    /// Replaces the whole record. If it differs: tells the observers, saves, calls `onChange`. A
    /// save that fails is logged, and the new record holds all the same.
    void setSettings(Settings settings);

    /// For views that show settings; called after every change, before it is saved.
    [[nodiscard]] Subscription observe(std::function<void()> listener) {
        return settings_.observe(std::move(listener));
    }

    [[nodiscard]] const FileURL& fileURL() const noexcept { return fileURL_; }

    /// Called when a change has been saved.
    std::function<void()> onChange;

private:
    [[nodiscard]] Settings load() const;
    [[nodiscard]] Result<void> save() const;

    FileSystem& fileSystem_;
    FileURL fileURL_;
    Observable<Settings> settings_;
};

}
