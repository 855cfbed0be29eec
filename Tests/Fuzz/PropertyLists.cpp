/// Fuzzes the property list of the desktop's own dock.
#include "Desktop/PropertyLists/PropertyListLimits.hpp"
#include "Desktop/PropertyLists/PropertyListReader.hpp"
#include "Foundation/Require.hpp"
#include "Fuzz/FuzzTarget.hpp"
#include "Sources/DockPreferencesReader.hpp"

#include <glib.h>

namespace vireline {
namespace {

bool isUTF8(const std::string& text) {
    return g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE;
}

void read(std::span<const std::byte> bytes) {
    const xdg::PropertyListReader reader;
    const auto tiles = DockPreferencesReader::parse(bytes, reader);
    if (!tiles)
        return;
    require(tiles->size() <= xdg::PropertyListLimits::maximumValues, "tiles are bounded");
    for (const ParsedDockEntry& tile : *tiles) {
        require(tile.url.path().starts_with('/'), "a tile leads to an absolute path");
        require(isUTF8(tile.label.value_or("")), "a label is UTF-8");
        require(isUTF8(tile.bundleID.value_or("")), "an identifier is UTF-8");
    }
    require(DockPreferencesReader::parse(bytes, reader) == tiles, "reading again gives the same");
}

}
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    vireline::read(vireline::fuzz::bytes(data, size));
    return 0;
}
