/// The list of all icons of one theme folder that desktops keep beside it, so that looking for a
/// name does not mean looking into hundreds of folders.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

class IconCache {
public:
    /// A folder, relative to the theme's, that has the icon.
    struct Place {
        std::string_view folder;
        bool hasPng = false;
        bool hasSvg = false;
        bool hasXpm = false;

        bool operator==(const Place&) const = default;
    };

    /// Over the bytes of a cache file, which may hold anything and must outlive this.
    explicit IconCache(std::span<const std::byte> bytes) : bytes_(bytes) {}

    /// That of the theme folder at `root`; nothing if it has none or if icons were added since.
    [[nodiscard]] static std::optional<IconCache> open(const std::string& root);

    /// Empty for an icon that the theme does not have there.
    [[nodiscard]] std::vector<Place> find(std::string_view icon) const;

private:
    [[nodiscard]] std::optional<std::uint32_t> number(std::uint64_t offset,
                                                      std::size_t size = 4) const;
    [[nodiscard]] std::string_view text(std::uint64_t offset) const;
    [[nodiscard]] std::vector<Place> places(std::uint32_t list) const;

    /// Keeps the file's pages mapped, where the bytes are those of a file.
    std::shared_ptr<const void> mapping_;
    std::span<const std::byte> bytes_;
};

}
