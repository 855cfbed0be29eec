/// Reads the icon cache that desktops keep beside a theme folder, which avoids searching hundreds
/// of folders for a name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

class IconCache {
public:
    /// A folder, relative to the theme's, that contains the icon.
    struct Place {
        std::string_view folder;
        bool hasPng = false;
        bool hasSvg = false;
        bool hasXpm = false;

        bool operator==(const Place&) const = default;
    };

    /// Reads from the bytes of a cache file, which may be malformed and must outlive this object.
    explicit IconCache(std::span<const std::byte> bytes) : bytes_(bytes) {}

    /// The cache of the theme folder at `root`; nullopt if there is none or it is out of date.
    [[nodiscard]] static std::optional<IconCache> open(const std::string& root);

    /// Empty if the theme folder does not have the icon.
    [[nodiscard]] std::vector<Place> find(std::string_view icon) const;

private:
    [[nodiscard]] std::optional<std::uint32_t> number(std::uint64_t offset,
                                                      std::size_t size = 4) const;
    [[nodiscard]] std::string_view text(std::uint64_t offset) const;
    [[nodiscard]] std::vector<Place> places(std::uint32_t list) const;

    /// Keeps the file mapped, if the bytes come from a file.
    std::shared_ptr<const void> mapping_;
    std::span<const std::byte> bytes_;
};

}
