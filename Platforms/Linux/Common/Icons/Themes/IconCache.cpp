#include "Icons/Themes/IconCache.hpp"

#include "Files/FileDescriptor.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include <algorithm>
#include <tuple>

namespace vireline::xdg {
namespace {

constexpr std::uint32_t none = 0xffffffffU;
/// Limits a hash chain or list. Real ones have a few entries, but in a crafted file a chain may be
/// a cycle.
constexpr std::uint32_t maximumChain = 1024;
constexpr std::uint32_t maximumPlaces = 1024;
constexpr off_t maximumBytes = 256 << 20;

/// The file format's hash function, which works on signed characters.
std::uint32_t hash(std::string_view name) {
    std::uint32_t value = 0;
    for (const char character : name) {
        value = value * 31 + static_cast<std::uint32_t>(static_cast<signed char>(character));
    }
    return value;
}

bool isOlder(const struct stat& a, const struct stat& b) {
    return std::tie(a.st_mtim.tv_sec, a.st_mtim.tv_nsec) <
           std::tie(b.st_mtim.tv_sec, b.st_mtim.tv_nsec);
}

}

std::optional<IconCache> IconCache::open(const std::string& root) {
    const std::string path = root + "/icon-theme.cache";
    const FileDescriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)};
    struct stat cache{};
    struct stat folder{};
    if (!file || ::fstat(file.get(), &cache) != 0 || !S_ISREG(cache.st_mode) ||
        ::stat(root.c_str(), &folder) != 0 || isOlder(cache, folder) || cache.st_size <= 0 ||
        cache.st_size > maximumBytes)
        return std::nullopt;
    const auto size = static_cast<std::size_t>(cache.st_size);
    void* const pages = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file.get(), 0);
    if (pages == MAP_FAILED)
        return std::nullopt;
    IconCache opened{{static_cast<const std::byte*>(pages), size}};
    opened.mapping_ = {pages, [size](void* mapped) { ::munmap(mapped, size); }};
    constexpr std::uint32_t version = 1U << 16U;
    return opened.number(0) == version ? std::optional{std::move(opened)} : std::nullopt;
}

std::vector<IconCache::Place> IconCache::find(std::string_view icon) const {
    const auto table = number(4);
    const auto buckets = table ? number(*table) : std::nullopt;
    if (!buckets || *buckets == 0)
        return {};
    auto entry = number(*table + 4ULL + 4ULL * (hash(icon) % *buckets));
    for (std::uint32_t i = 0; entry && *entry != none && i < maximumChain; ++i) {
        const auto name = number(*entry + 4ULL);
        const auto list = number(*entry + 8ULL);
        if (name && list && text(*name) == icon)
            return places(*list);
        entry = number(*entry);
    }
    return {};
}

/// Reads a big-endian number.
std::optional<std::uint32_t> IconCache::number(std::uint64_t offset, std::size_t size) const {
    if (offset > bytes_.size() || bytes_.size() - offset < size)
        return std::nullopt;
    std::uint32_t value = 0;
    for (const std::byte byte : bytes_.subspan(offset, size)) {
        value = value << 8U | std::to_integer<std::uint32_t>(byte);
    }
    return value;
}

std::string_view IconCache::text(std::uint64_t offset) const {
    if (offset >= bytes_.size())
        return {};
    const auto rest = bytes_.subspan(offset);
    const auto end = std::ranges::find(rest, std::byte{0});
    if (end == rest.end())
        return {};
    return {reinterpret_cast<const char*>(rest.data()),
            static_cast<std::size_t>(end - rest.begin())};
}

std::vector<IconCache::Place> IconCache::places(std::uint32_t list) const {
    constexpr std::uint32_t xpm = 1;
    constexpr std::uint32_t svg = 2;
    constexpr std::uint32_t png = 4;
    const auto folders = number(8);
    const std::uint32_t count = std::min(number(list).value_or(0), maximumPlaces);
    std::vector<Place> places;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint64_t image = list + 4ULL + 8ULL * i;
        const auto folder = number(image, 2);
        const auto kinds = number(image + 2, 2);
        if (!folders || !folder || !kinds)
            break;
        const auto name = number(*folders + 4ULL + 4ULL * *folder);
        const auto path = name ? text(*name) : std::string_view{};
        if (!path.empty())
            places.push_back({path, (*kinds & png) != 0, (*kinds & svg) != 0, (*kinds & xpm) != 0});
    }
    return places;
}

}
