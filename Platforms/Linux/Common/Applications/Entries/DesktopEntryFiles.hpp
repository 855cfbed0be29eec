/// Reads desktop entries from disk, within limits on size and depth.
#pragma once

#include "Applications/Entries/DesktopEntry.hpp"
#include "Foundation/FileURL.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireline::xdg::DesktopEntryFiles {

/// Real entries with all their translations have tens of kilobytes.
inline constexpr std::size_t maximumBytes = 1UL << 20U;
inline constexpr int maximumDepth = 8;
inline constexpr std::size_t maximumFiles = 20'000;

/// Called with the path of each file that is not a valid entry.
using Skipped = std::function<void(const std::string& path)>;

/// Reads the file at `path` as the entry with this ID. Returns nullopt if it is not valid;
/// `skipped` is called if the file exists.
[[nodiscard]] std::optional<DesktopEntry> read(const std::string& path, std::string id,
                                               const Skipped& skipped);

/// The entries of all folders and their subfolders, those of earlier folders first. A folder that
/// is reached a second time through a link is ignored.
[[nodiscard]] std::vector<DesktopEntry> scan(std::span<const FileURL> folders,
                                             const Skipped& skipped);

/// The ID of the file at `path`: derived from its path in the first of `folders` that contains it,
/// otherwise from its file name.
[[nodiscard]] std::string idOf(const std::string& path, std::span<const FileURL> folders);

}
