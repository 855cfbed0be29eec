#include "Desktop/PropertyLists/PropertyListLimits.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vireline::xdg::PropertyListLimits {
namespace {

/// A binary property list consists of this header, the values, a table of their offsets, and at the
/// very end a trailer that describes the table. All numbers are big-endian.
constexpr std::string_view head = "bplist00";
constexpr std::size_t trailerBytes = 32;

/// The kind of a value: the upper half of its first byte. Kinds that the parser does not support,
/// such as null, are rejected.
enum Kind : std::uint8_t {
    boolean = 0x0,
    integer = 0x1,
    real = 0x2,
    date = 0x3,
    data = 0x4,
    asciiText = 0x5,
    utf16Text = 0x6,
    uid = 0x8,
    array = 0xA,
    set = 0xC,
    dictionary = 0xD,
};

class BinaryWalk {
public:
    explicit BinaryWalk(std::span<const std::byte> bytes) : bytes_(bytes) {}

    bool admits() {
        const auto root = readTrailer();
        return root && admitsValue(*root, 0);
    }

private:
    /// Reads the trailer and returns the index of the root value.
    std::optional<std::uint64_t> readTrailer() {
        if (bytes_.size() < head.size() + trailerBytes)
            return std::nullopt;
        const bool isHeaded = std::ranges::equal(bytes_.first(head.size()), head, {},
                                                 [](std::byte b) { return static_cast<char>(b); });
        const std::size_t trailer = bytes_.size() - trailerBytes;
        offsetBytes_ = std::to_integer<std::size_t>(bytes_[trailer + 6]);
        referenceBytes_ = std::to_integer<std::size_t>(bytes_[trailer + 7]);
        count_ = number(trailer + 8, 8);
        const std::uint64_t root = number(trailer + 16, 8);
        const std::uint64_t table = number(trailer + 24, 8);
        if (!isHeaded || !isWidth(offsetBytes_) || !isWidth(referenceBytes_) ||
            table < head.size() || table > trailer || count_ > (trailer - table) / offsetBytes_)
            return std::nullopt;
        table_ = static_cast<std::size_t>(table);
        return root;
    }

    static bool isWidth(std::size_t bytes) {
        static constexpr std::array<std::size_t, 4> widths{1, 2, 4, 8};
        return std::ranges::find(widths, bytes) != widths.end();
    }

    /// The caller must have checked the bounds.
    [[nodiscard]] std::uint64_t number(std::size_t at, std::size_t width) const {
        std::uint64_t value = 0;
        for (const std::byte byte : bytes_.subspan(at, width))
            value = value << 8U | std::to_integer<std::uint64_t>(byte);
        return value;
    }

    /// Whether `length` bytes from `at` lie within the area for values.
    [[nodiscard]] bool holds(std::size_t at, std::uint64_t length) const {
        return at <= table_ && length <= table_ - at;
    }

    bool admitsValue(std::uint64_t index, int depth) {
        if (index >= count_ || depth > maximumDepth || ++values_ > maximumValues)
            return false;
        const std::uint64_t offset =
            number(table_ + static_cast<std::size_t>(index) * offsetBytes_, offsetBytes_);
        if (offset < head.size() || offset >= table_)
            return false;
        const auto at = static_cast<std::size_t>(offset);
        const auto marker = std::to_integer<unsigned>(bytes_[at]);
        return admitsContent(marker >> 4U, marker & 0xFU, at + 1, depth);
    }

    bool admitsContent(unsigned kind, unsigned size, std::size_t at, int depth) {
        switch (kind) {
        case boolean:
            return size == 0x8 || size == 0x9;
        case integer:
            return size <= 4 && holds(at, 1U << size);
        case real:
            return (size == 2 || size == 3) && holds(at, 1U << size);
        case date:
            return size == 3 && holds(at, 8);
        case uid:
            return size < 8 && holds(at, size + 1);
        case data:
        case asciiText:
            return sizedContent(size, at, 1).has_value();
        case utf16Text:
            return admitsUTF16(size, at);
        case array:
        case set:
            return admitsReferences(size, at, 1, depth);
        case dictionary:
            return admitsReferences(size, at, 2, depth);
        default:
            return false;
        }
    }

    struct Count {
        std::uint64_t items;
        std::size_t at;
    };

    /// The item count and where the items begin. A count that does not fit into the marker follows
    /// it as an integer.
    [[nodiscard]] std::optional<Count> countedItems(unsigned size, std::size_t at) const {
        if (size != 0xFU)
            return Count{size, at};
        if (!holds(at, 1))
            return std::nullopt;
        const auto marker = std::to_integer<unsigned>(bytes_[at]);
        if (marker >> 4U != integer || (marker & 0xFU) > 3)
            return std::nullopt;
        const std::size_t width = 1UL << (marker & 0xFU);
        if (!holds(at + 1, width))
            return std::nullopt;
        return Count{number(at + 1, width), at + 1 + width};
    }

    /// The content of so many items.
    std::optional<std::span<const std::byte>> sizedContent(unsigned size, std::size_t at,
                                                           std::size_t bytesPerItem) {
        const auto count = countedItems(size, at);
        if (!count || count->items > maximumBytes || !holds(count->at, count->items * bytesPerItem))
            return std::nullopt;
        const std::size_t length = static_cast<std::size_t>(count->items) * bytesPerItem;
        contentBytes_ += length;
        if (contentBytes_ > maximumBytes)
            return std::nullopt;
        return bytes_.subspan(count->at, length);
    }

    /// The parser aborts the process if a key contains a zero character.
    bool admitsUTF16(unsigned size, std::size_t at) {
        const auto text = sizedContent(size, at, 2);
        if (!text)
            return false;
        for (std::size_t i = 0; i < text->size(); i += 2) {
            if ((*text)[i] == std::byte{0} && (*text)[i + 1] == std::byte{0})
                return false;
        }
        return true;
    }

    bool admitsReferences(unsigned size, std::size_t at, std::size_t referencesPerItem, int depth) {
        const auto count = countedItems(size, at);
        if (!count || count->items > maximumValues)
            return false;
        const std::size_t references = static_cast<std::size_t>(count->items) * referencesPerItem;
        if (!holds(count->at, references * referenceBytes_))
            return false;
        for (std::size_t i = 0; i < references; ++i) {
            if (!admitsValue(number(count->at + i * referenceBytes_, referenceBytes_), depth + 1))
                return false;
        }
        return true;
    }

    std::span<const std::byte> bytes_;
    std::size_t offsetBytes_ = 0;
    std::size_t referenceBytes_ = 0;
    std::uint64_t count_ = 0;
    /// Offset of the offset table, where the values end.
    std::size_t table_ = 0;
    std::size_t values_ = 0;
    std::size_t contentBytes_ = 0;
};

}

// Counts every "<", whether in a comment, in text or in a tag, so that nothing the parser treats as
// a tag can be hidden from this check.
bool admitsXML(std::span<const std::byte> bytes) {
    if (bytes.size() > maximumBytes)
        return false;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
    std::string_view text{reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    std::size_t tags = 0;
    std::size_t containers = 0;
    for (std::size_t at = text.find('<'); at != text.npos; at = text.find('<', at + 1)) {
        const std::string_view tag = text.substr(at + 1, 5);
        containers += tag.starts_with("array") || tag.starts_with("dict") ? 1U : 0U;
        if (++tags > maximumValues || containers > maximumContainers)
            return false;
    }
    return true;
}

bool admitsBinary(std::span<const std::byte> bytes) {
    return bytes.size() <= maximumBytes && BinaryWalk{bytes}.admits();
}

}
