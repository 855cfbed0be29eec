/// Owns the settings record and its file: reads the file once at start, and saves every change
/// before calling `onChange`.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Observable.hpp"
#include "Platform/Files/FileSystem.hpp"
#include "Platform/Files/UserFolders.hpp"
#include "Settings/Settings.hpp"

#include <functional>
#include <optional>

namespace vireline {

class PreferencesStore : private NonCopyable {
public:
    /// A longer file counts as damaged. For scale: a record with a thousand apps takes about 200
    /// KiB.
    static constexpr std::size_t maximumFileBytes = std::size_t{1} * 1024 * 1024;

    /// Loads "preferences.json" from `directory`, by default the folder "Vireline" in the user's
    /// folder for application data. If the file is missing or damaged, the record has its defaults.
    /// A damaged file is logged and left as it is until the first change.
    PreferencesStore(FileSystem& fileSystem, const UserFolders& folders,
                     const std::optional<FileURL>& directory = std::nullopt);

    [[nodiscard]] const Settings& settings() const noexcept { return settings_.get(); }

    /// Replaces the whole record. If it differs, notifies the observers, saves, and calls
    /// `onChange`. If saving fails, that is logged, and the new record applies nevertheless.
    void setSettings(Settings settings);

    /// Calls `listener` after every change, before it is saved. For views that show settings.
    [[nodiscard]] Subscription observe(std::function<void()> listener) {
        return settings_.observe(std::move(listener));
    }

    [[nodiscard]] const FileURL& fileURL() const noexcept { return fileURL_; }

    /// Called after a change, once saving it has been attempted.
    std::function<void()> onChange;

private:
    [[nodiscard]] Settings load() const;
    [[nodiscard]] Result<void> save() const;

    FileSystem& fileSystem_;
    FileURL fileURL_;
    Observable<Settings> settings_;
};

}
