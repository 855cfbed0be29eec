#include "Model/DockViewModel.hpp"

#include <algorithm>
#include <iterator>

namespace vireline {
namespace {

std::vector<DockItem> itemsWhere(const std::vector<DockItem>& items, bool isPinned) {
    std::vector<DockItem> chosen;
    chosen.reserve(items.size());
    std::ranges::copy_if(items, std::back_inserter(chosen),
                         [isPinned](const DockItem& item) { return item.isPinned == isPinned; });
    return chosen;
}

}

std::vector<DockItem> DockViewModel::pinnedItems() const {
    return itemsWhere(items.get(), true);
}

std::vector<DockItem> DockViewModel::unpinnedItems() const {
    return itemsWhere(items.get(), false);
}

}
