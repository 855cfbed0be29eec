/// All installed desktop entries with the look-ups that telling windows apart needs. Never changes
/// once it is made.
#pragma once

#include "Applications/Entries/DesktopEntry.hpp"

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace vireline::x11 {

class DesktopEntryIndex {
public:
    using Matches = std::vector<const DesktopEntry*>;

    /// Of several entries with one ID the first counts; a hidden one hides those behind it.
    explicit DesktopEntryIndex(std::vector<DesktopEntry> entries = {});
    DesktopEntryIndex(DesktopEntryIndex&&) noexcept = default;
    DesktopEntryIndex& operator=(DesktopEntryIndex&&) noexcept = default;
    DesktopEntryIndex(const DesktopEntryIndex&) = delete;
    DesktopEntryIndex& operator=(const DesktopEntryIndex&) = delete;
    ~DesktopEntryIndex() = default;

    /// In the order of their IDs.
    [[nodiscard]] const std::vector<DesktopEntry>& entries() const noexcept { return entries_; }

    /// Null when there is none.
    [[nodiscard]] const DesktopEntry* find(std::string_view id) const;
    [[nodiscard]] const DesktopEntry* findPath(std::string_view path) const;

private:
    std::vector<DesktopEntry> entries_;
};

}
