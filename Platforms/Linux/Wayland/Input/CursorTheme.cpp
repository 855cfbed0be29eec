#include "Input/CursorTheme.hpp"

#include "Files/BoundedFile.hpp"
#include "Icons/Themes/IconThemeIndex.hpp"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <utility>

namespace vireline::wayland::CursorTheme {
namespace {

constexpr std::string_view magic = "Xcur";
constexpr std::uint32_t imageType = 0xfffd0002;
constexpr std::uint32_t largestSide = 1024;
constexpr std::size_t maximumFileBytes = 16U << 20U;
constexpr std::size_t maximumIndexBytes = 1U << 20U;
/// Limits the chain of parent themes, which may be a circle; real ones are short.
constexpr std::size_t maximumThemes = 16;

/// The numbers of a cursor file, by their place in units of four bytes; 0 beyond its end.
class CursorWords {
public:
    explicit CursorWords(std::string_view content) : content_(content) {}

    [[nodiscard]] std::uint32_t at(std::size_t byte) const {
        std::uint32_t word = 0;
        if (byte > content_.size() || content_.size() - byte < sizeof word)
            return 0;
        std::memcpy(&word, content_.data() + byte, sizeof word);
        return std::endian::native == std::endian::little ? word : std::byteswap(word);
    }

private:
    std::string_view content_;
};

/// Where the chunk of the best image begins; 0 if there is none.
std::size_t bestImage(std::string_view content, int size) {
    constexpr std::size_t headerBytes = 16;
    constexpr std::size_t entryBytes = 12;
    const CursorWords words{content};
    const std::size_t entries = std::min<std::size_t>(words.at(12), content.size() / entryBytes);
    std::size_t best = 0;
    std::int64_t bestDistance = 0;
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t entry = headerBytes + i * entryBytes;
        const std::int64_t distance = std::abs(std::int64_t{words.at(entry + 4)} - size);
        if (words.at(entry) != imageType || (best != 0 && distance >= bestDistance))
            continue;
        best = words.at(entry + 8);
        bestDistance = distance;
    }
    return best;
}

std::optional<CursorImage> arrowIn(const std::string& folder, int size) {
    // By the standard's name, and by that of older themes.
    for (const char* const name : {"default", "left_ptr"}) {
        const auto content = xdg::BoundedFile::read(folder + "/cursors/" + name, maximumFileBytes);
        if (auto image = content ? parse(*content, size) : std::nullopt)
            return image;
    }
    return std::nullopt;
}

}

std::optional<CursorImage> parse(std::string_view content, int size) {
    constexpr std::size_t chunkHeaderBytes = 36;
    const CursorWords words{content};
    const std::size_t chunk = content.starts_with(magic) ? bestImage(content, size) : 0;
    const std::uint32_t width = words.at(chunk + 16);
    const std::uint32_t height = words.at(chunk + 20);
    const std::uint32_t hotspotX = words.at(chunk + 24);
    const std::uint32_t hotspotY = words.at(chunk + 28);
    if (chunk == 0 || width == 0 || height == 0 || width > largestSide || height > largestSide ||
        hotspotX > width || hotspotY > height ||
        chunk + chunkHeaderBytes + sizeof(std::uint32_t) * width * height > content.size())
        return std::nullopt;
    CursorImage image{QImage{static_cast<int>(width), static_cast<int>(height),
                             QImage::Format_ARGB32_Premultiplied},
                      {static_cast<int>(hotspotX), static_cast<int>(hotspotY)}};
    std::size_t from = chunk + chunkHeaderBytes;
    for (int y = 0; y < image.picture.height(); ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(image.picture.scanLine(y));
        for (std::uint32_t x = 0; x < width; ++x, from += sizeof(std::uint32_t))
            row[x] = words.at(from);
    }
    return image;
}

std::optional<CursorImage> arrow(const std::vector<std::string>& folders, const std::string& theme,
                                 int size) {
    std::vector<std::string> themes{theme};
    for (std::size_t i = 0; i < themes.size() && i < maximumThemes; ++i) {
        for (const std::string& folder : folders) {
            const std::string root = folder + '/' + themes[i];
            if (auto image = arrowIn(root, size))
                return image;
            const auto index = xdg::BoundedFile::read(root + "/index.theme", maximumIndexBytes);
            if (!index)
                continue;
            for (std::string& parent : xdg::IconThemeIndexes::parse(*index).parents)
                themes.push_back(std::move(parent));
        }
    }
    return std::nullopt;
}

}
