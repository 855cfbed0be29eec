/// All installed desktop entries with what telling windows apart needs to know of each. Never
/// changes once it is made.
#pragma once

#include "Applications/Entries/AppCommand.hpp"
#include "Applications/Entries/DesktopEntry.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11 {

/// An entry as windows are held against it.
struct IndexedEntry {
    DesktopEntry entry;
    /// In lower case.
    std::string foldedID;
    /// The last component of a reverse-DNS ID, in lower case; empty for other IDs.
    std::string tail;
    std::string foldedWMClass;
    AppCommand command;

    bool operator==(const IndexedEntry&) const = default;
};

class DesktopEntryIndex {
public:
    /// Of several entries with one ID the first counts; a hidden one hides those behind it.
    explicit DesktopEntryIndex(std::vector<DesktopEntry> entries = {});

    /// In the order of their IDs.
    [[nodiscard]] const std::vector<IndexedEntry>& entries() const noexcept { return entries_; }

    /// Null when there is none.
    [[nodiscard]] const IndexedEntry* find(std::string_view id) const;
    [[nodiscard]] const IndexedEntry* findPath(std::string_view path) const;

private:
    std::vector<IndexedEntry> entries_;
};

}
