#include "Desktop/PropertyLists/PropertyListReader.hpp"

#include "Desktop/PropertyLists/PropertyListLimits.hpp"
#include "GLib/GLibHandles.hpp"

#include <plist/plist.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace vireline::xdg {
namespace {

using Root = GLibHandle<void, plist_free>;

struct Free {
    void operator()(void* memory) const noexcept {
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): libplist hands out malloc'ed memory
        std::free(memory);
    }
};

template <class T>
using Allocated = std::unique_ptr<T, Free>;

std::string validText(const char* text, std::size_t length) {
    const auto signedLength = static_cast<gssize>(length);
    if (g_utf8_validate(text, signedLength, nullptr) != 0)
        return {text, length};
    const GLibHandle<char, g_free> mended{g_utf8_make_valid(text, signedLength)};
    return mended.get();
}

PropertyList text(plist_t node) {
    std::uint64_t length = 0;
    const char* characters = plist_get_string_ptr(node, &length);
    if (characters == nullptr)
        return PropertyList{""};
    return PropertyList{validText(characters, static_cast<std::size_t>(length))};
}

PropertyList data(plist_t node) {
    std::uint64_t length = 0;
    const char* content = plist_get_data_ptr(node, &length);
    if (content == nullptr)
        return PropertyList{PropertyList::Data{}};
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): characters as bytes
    const std::span bytes{reinterpret_cast<const std::byte*>(content),
                          static_cast<std::size_t>(length)};
    return PropertyList{PropertyList::Data(bytes.begin(), bytes.end())};
}

std::optional<PropertyList> value(plist_t node, int depth);

std::optional<PropertyList> array(plist_t node, int depth) {
    plist_array_iter started = nullptr;
    plist_array_new_iter(node, &started);
    const Allocated<void> iterator{started};
    PropertyList::Array items;
    while (true) {
        plist_t item = nullptr;
        plist_array_next_item(node, iterator.get(), &item);
        if (item == nullptr)
            return PropertyList{std::move(items)};
        auto converted = value(item, depth + 1);
        if (!converted)
            return std::nullopt;
        items.push_back(*std::move(converted));
    }
}

std::optional<PropertyList> dictionary(plist_t node, int depth) {
    plist_dict_iter started = nullptr;
    plist_dict_new_iter(node, &started);
    const Allocated<void> iterator{started};
    PropertyList::Dictionary entries;
    while (true) {
        char* name = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator.get(), &name, &item);
        const Allocated<char> key{name};
        if (!key || item == nullptr)
            return PropertyList{std::move(entries)};
        auto converted = value(item, depth + 1);
        if (!converted)
            return std::nullopt;
        entries.insert_or_assign(validText(key.get(), std::strlen(key.get())),
                                 *std::move(converted));
    }
}

/// Converts a node of the parser to a value; nullopt if it is nested too deeply.
std::optional<PropertyList> value(plist_t node, int depth) {
    if (depth > PropertyListLimits::maximumDepth)
        return std::nullopt;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t boolean = 0;
        plist_get_bool_val(node, &boolean);
        return PropertyList{boolean != 0};
    }
    case PLIST_UINT: {
        std::uint64_t bits = 0;
        plist_get_uint_val(node, &bits);
        return PropertyList{static_cast<std::int64_t>(bits)};
    }
    case PLIST_REAL: {
        double real = 0;
        plist_get_real_val(node, &real);
        return PropertyList{real};
    }
    case PLIST_STRING:
        return text(node);
    case PLIST_DATA:
        return data(node);
    case PLIST_ARRAY:
        return array(node, depth);
    case PLIST_DICT:
        return dictionary(node, depth);
    default:
        return PropertyList{};
    }
}

std::unexpected<PlatformError> notAPropertyList() {
    return std::unexpected{PlatformError{EINVAL, "not a property list"}};
}

}

Result<PropertyList> PropertyListReader::decode(std::span<const std::byte> bytes) const {
    if (bytes.size() > PropertyListLimits::maximumBytes)
        return std::unexpected{PlatformError{EFBIG, "property list too long"}};
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as characters
    const auto* characters = reinterpret_cast<const char*>(bytes.data());
    const auto length = static_cast<std::uint32_t>(bytes.size());
    const bool isBinary = length > 0 && plist_is_binary(characters, length) != 0;
    if (isBinary ? !PropertyListLimits::admitsBinary(bytes) : !PropertyListLimits::admitsXML(bytes))
        return notAPropertyList();
    plist_t parsed = nullptr;
    if (isBinary)
        plist_from_bin(characters, length, &parsed);
    else
        plist_from_xml(characters, length, &parsed);
    const Root root{parsed};
    if (!root)
        return notAPropertyList();
    auto converted = value(root.get(), 0);
    if (!converted)
        return notAPropertyList();
    return *std::move(converted);
}

}
