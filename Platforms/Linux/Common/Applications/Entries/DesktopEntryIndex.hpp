/// All installed desktop entries, prepared for matching windows against them. Immutable.
#pragma once

#include "Applications/Entries/AppCommand.hpp"
#include "Applications/Entries/DesktopEntry.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

/// An entry with what window matching needs.
struct IndexedEntry {
    DesktopEntry entry;
    /// The ID, lower-cased.
    std::string foldedID;
    /// The last component of a reverse-DNS ID, lower-cased; empty for other IDs.
    std::string tail;
    std::string foldedWMClass;
    AppCommand command;

    bool operator==(const IndexedEntry&) const = default;
};

class DesktopEntryIndex {
public:
    /// The first of several entries with the same ID wins; a hidden one hides the later ones.
    explicit DesktopEntryIndex(std::vector<DesktopEntry> entries = {});

    /// Sorted by ID.
    [[nodiscard]] const std::vector<IndexedEntry>& entries() const noexcept { return entries_; }

    /// Null if there is none.
    [[nodiscard]] const IndexedEntry* find(std::string_view id) const;
    [[nodiscard]] const IndexedEntry* findPath(std::string_view path) const;

private:
    std::vector<IndexedEntry> entries_;
};

}
