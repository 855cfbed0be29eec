#include "Sources/ListHistory.hpp"

#include "Foundation/Require.hpp"

#include <utility>

namespace vireline {

std::string undoTitle(const ListEdit& edit) {
    switch (edit.kind) {
    case ListEdit::Kind::move:
        return "Undo Move of " + edit.name;
    case ListEdit::Kind::add:
        return "Undo Adding " + edit.name;
    case ListEdit::Kind::remove:
        return "Undo Removing " + edit.name;
    }
    return {};
}

void ListHistory::record(const ListEdit& edit, PinnedListState before, PinnedListState after) {
    steps_.push_back({edit, std::move(before), std::move(after)});
    if (steps_.size() > depth)
        steps_.pop_front();
}

void ListHistory::compare(const PinnedListState& now) {
    if (!steps_.empty() && steps_.back().after != now)
        steps_.clear();
}

const ListEdit* ListHistory::last() const noexcept {
    return steps_.empty() ? nullptr : &steps_.back().edit;
}

PinnedListState ListHistory::takeLast() {
    require(!steps_.empty(), "there is an edit to undo");
    PinnedListState before = std::move(steps_.back().before);
    steps_.pop_back();
    return before;
}

}
