/// Any bytes as the preferences file: the store starts with them, and what it made of them comes
/// back from its own file the same.
#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "Settings/PreferencesStore.hpp"
#include "Settings/SettingsCoding.hpp"
#include "Support/FakeFiles.hpp"

#include <string>

namespace vireline {
namespace {

/// What a file can hold: text in it is UTF-8, so a name that is not comes back mended.
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
