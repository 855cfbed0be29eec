/// Reads desktop entries from the disk: bounded, whatever lies in the folders.
#pragma once

#include "Applications/Entries/DesktopEntry.hpp"
#include "Foundation/FileURL.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireline::x11::DesktopEntryFiles {

/// A real entry with all its translations has some ten kilobytes.
inline constexpr std::size_t maximumBytes = 1UL << 20U;
inline constexpr int maximumDepth = 8;
inline constexpr std::size_t maximumFiles = 20'000;

/// Receives the path of a file that holds no valid entry.
using Skipped = std::function<void(const std::string& path)>;

/// The entry in the file at `path` under this ID; nothing if it is not valid, of which `skipped`
/// hears if there is a file.
[[nodiscard]] std::optional<DesktopEntry> read(const std::string& path, std::string id,
                                               std::span<const std::string> languages,
                                               const Skipped& skipped);

/// The entries of all folders and the folders below them, those of an earlier folder first. A
/// folder that is met again through links is passed over.
[[nodiscard]] std::vector<DesktopEntry> scan(std::span<const FileURL> folders,
                                             std::span<const std::string> languages,
                                             const Skipped& skipped);

/// The ID of the file at `path`: relative to the first of `folders` that holds it, else its name.
[[nodiscard]] std::string idOf(const std::string& path, std::span<const FileURL> folders);

}
