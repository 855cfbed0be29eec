#include "Applications/Entries/DesktopEntryIndex.hpp"

#include "Text/PlainText.hpp"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>

namespace vireline::xdg {
namespace {

std::string_view idOf(const IndexedEntry& indexed) {
    return indexed.entry.id;
}

/// Names such as "python3.11" or "app-1.2.3" also contain dots, but do not begin with a domain.
std::string tailOf(std::string_view foldedID) {
    const std::size_t first = foldedID.find('.');
    const std::size_t last = foldedID.rfind('.');
    if (first == last || first < 2 || last + 1 == foldedID.size())
        return {};
    const auto isLetter = [](char c) { return c >= 'a' && c <= 'z'; };
    const bool beginsWithDomain = std::ranges::all_of(foldedID.substr(0, first), isLetter);
    return beginsWithDomain ? std::string{foldedID.substr(last + 1)} : std::string{};
}

IndexedEntry indexed(DesktopEntry entry) {
    IndexedEntry result;
    result.entry = std::move(entry);
    result.foldedID = PlainText::folded(result.entry.id);
    result.tail = tailOf(result.foldedID);
    result.foldedWMClass = PlainText::folded(result.entry.startupWMClass);
    result.command = AppCommands::fromExec(result.entry.exec);
    return result;
}

}

DesktopEntryIndex::DesktopEntryIndex(std::vector<DesktopEntry> entries) {
    // The first entry with an ID wins, even if it is there only to hide the others.
    std::unordered_set<std::string> seen;
    std::erase_if(entries, [&seen](const DesktopEntry& entry) {
        return !seen.insert(entry.id).second || entry.hidden;
    });
    std::ranges::sort(entries, {}, &DesktopEntry::id);
    entries_.reserve(entries.size());
    for (auto& entry : entries)
        entries_.push_back(indexed(std::move(entry)));
}

const IndexedEntry* DesktopEntryIndex::find(std::string_view id) const {
    const auto found = std::ranges::lower_bound(entries_, id, {}, idOf);
    return found != entries_.end() && found->entry.id == id ? &*found : nullptr;
}

const IndexedEntry* DesktopEntryIndex::findPath(std::string_view path) const {
    const auto found = std::ranges::find(entries_, path, [](const IndexedEntry& indexed) {
        return std::string_view{indexed.entry.path};
    });
    return found == entries_.end() ? nullptr : &*found;
}

}
