/// Builds binary property lists value by value, so that tests can make malformed ones.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::test {

inline std::span<const std::byte> bytesOf(std::string_view text) {
    return std::as_bytes(std::span{text});
}

class BinaryPropertyList {
public:
    /// The index of the value that the next call adds.
    [[nodiscard]] std::uint32_t next() const { return static_cast<std::uint32_t>(values_.size()); }

    /// Adds the bytes of one value; returns its index.
    std::uint32_t add(std::string bytes) {
        values_.push_back(std::move(bytes));
        return next() - 1;
    }

    /// ASCII text of fewer than 65,536 bytes.
    std::uint32_t text(std::string_view content) {
        return add(marked(0x5, content.size()) + std::string{content});
    }

    std::uint32_t array(const std::vector<std::uint32_t>& items) {
        return add(marked(0xA, items.size()) + references(items));
    }

    std::uint32_t dictionary(const std::vector<std::uint32_t>& keys,
                             const std::vector<std::uint32_t>& items) {
        return add(marked(0xD, keys.size()) + references(keys) + references(items));
    }

    /// The whole file.
    [[nodiscard]] std::string file(std::uint64_t root) const {
        std::string bytes = "bplist00";
        std::string table;
        for (const std::string& value : values_) {
            table += number(bytes.size(), 4);
            bytes += value;
        }
        const std::size_t tableOffset = bytes.size();
        return bytes + table + std::string(6, '\0') + number(4, 1) + number(4, 1) +
               number(values_.size(), 8) + number(root, 8) + number(tableOffset, 8);
    }

    /// Big-endian.
    static std::string number(std::uint64_t value, std::size_t width) {
        std::string bytes(width, '\0');
        for (std::size_t i = 0; i < width; ++i)
            bytes[width - 1 - i] = static_cast<char>(value >> 8 * i & 0xFFU);
        return bytes;
    }

    /// A value's marker byte, followed by the count if that does not fit into it.
    static std::string marked(unsigned kind, std::size_t count) {
        if (count < 15)
            return number(kind << 4U | count, 1);
        return number(kind << 4U | 0xFU, 1) + number(0x11, 1) + number(count, 2);
    }

private:
    static std::string references(const std::vector<std::uint32_t>& items) {
        std::string bytes;
        for (const std::uint32_t item : items)
            bytes += number(item, 4);
        return bytes;
    }

    std::vector<std::string> values_;
};

}
