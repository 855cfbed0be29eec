#include "Settings/PreferencesStore.hpp"

#include "Foundation/DevLog.hpp"
#include "Foundation/Require.hpp"
#include "Settings/SettingsCoding.hpp"

#include <system_error>

namespace vireline {
namespace {

FileURL defaultDirectory(const UserFolders& folders) {
    const auto candidates = folders.applicationSupport();
    require(!candidates.empty(), "there is a folder for programs' data");
    return candidates.front().appending("Vireline");
}

Settings defaultsInsteadOfDamagedFile() {
    DevLog::write("preferences unreadable, using defaults (file kept)");
    return {};
}

}

PreferencesStore::PreferencesStore(FileSystem& fileSystem, const UserFolders& folders,
                                   const std::optional<FileURL>& directory)
    : fileSystem_(fileSystem)
    , fileURL_((directory ? *directory : defaultDirectory(folders)).appending("preferences.json"))
    , settings_(load()) {}

Settings PreferencesStore::load() const {
    const auto text = fileSystem_.read(fileURL_, maximumFileBytes);
    if (!text) {
        const bool isTooLong = text.error().code == static_cast<int>(std::errc::file_too_large);
        return isTooLong ? defaultsInsteadOfDamagedFile() : Settings{};
    }
    auto decoded = SettingsCoding::decode(*text);
    return decoded ? *std::move(decoded) : defaultsInsteadOfDamagedFile();
}

void PreferencesStore::setSettings(Settings settings) {
    if (settings == settings_.get())
        return;
    settings_.set(std::move(settings));
    if (const auto saved = save(); !saved)
        DevLog::write("preferences save failed: " + saved.error().description);
    if (onChange)
        onChange();
}

Result<void> PreferencesStore::save() const {
    if (auto created = fileSystem_.createFolder(fileURL_.parent()); !created)
        return created;
    return fileSystem_.writeAtomically(fileURL_, SettingsCoding::encode(settings()));
}

}
