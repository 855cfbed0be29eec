/// Fuzzes the preferences file: loads it into the store, and checks that the settings survive being
/// saved and loaded again.
#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "Settings/PreferencesStore.hpp"
#include "Settings/SettingsCoding.hpp"
#include "Support/FakeFiles.hpp"

#include <string>

namespace vireline {
namespace {

/// What can be stored: invalid UTF-8 in names is replaced.
Settings asStored(const Settings& settings) {
    auto stored = SettingsCoding::decode(SettingsCoding::encode(settings));
    require(stored.has_value(), "what was encoded can be decoded");
    return *std::move(stored);
}

void startWith(std::string_view text) {
    const test::FakeUserFolders folders;
    const FileURL folder = FileURL::fromPath("/data");
    test::FakeFileSystem files;
    files.put(folder.appending("preferences.json"), std::string{text});

    PreferencesStore store{files, folders, folder};
    require(files.writes.empty(), "reading never saves");
    require(asStored(store.settings()) == store.settings(), "what was read can be written");

    Settings changed = store.settings();
    changed.autoHide = !changed.autoHide;
    store.setSettings(changed);
    const PreferencesStore next{files, folders, folder};
    require(next.settings() == changed, "the next start finds what was saved");
}

}
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vireline::startWith(vireline::fuzz::text(data, size));
    return 0;
}
