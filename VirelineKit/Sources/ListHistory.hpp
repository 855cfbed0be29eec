/// The user's last edits of the pinned list in the docks, so that they can be undone. Owned by the
/// resolver, which makes the edits.
#pragma once

#include "Settings/Settings.hpp"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

/// The settings that decide what is pinned.
struct PinnedListState {
    SourceMode sourceMode = SourceMode::mirror;
    std::vector<StoredApp> apps;

    [[nodiscard]] static PinnedListState of(const Settings& settings) {
        return {settings.sourceMode, settings.manualApps};
    }

    bool operator==(const PinnedListState&) const = default;
};

/// What an edit did, and to which app.
struct ListEdit {
    enum class Kind { move, add, remove };

    Kind kind = Kind::move;
    std::string bundleID;
    std::string name;

    bool operator==(const ListEdit&) const = default;
};

/// The title of the menu entry that undoes it.
[[nodiscard]] std::string undoTitle(const ListEdit& edit);

class ListHistory {
public:
    /// Older edits are forgotten.
    static constexpr std::size_t depth = 10;

    /// Records an edit that changed `before` to `after`.
    void record(const ListEdit& edit, PinnedListState before, PinnedListState after);

    /// Forgets every edit unless the list is as the last one left it: undoing would otherwise
    /// revert changes that were made elsewhere, such as in the settings window.
    void compare(const PinnedListState& now);

    /// Null if there is nothing to undo.
    [[nodiscard]] const ListEdit* last() const noexcept;

    /// Removes the last edit and returns the list before it. There must be one.
    [[nodiscard]] PinnedListState takeLast();

private:
    struct Step {
        ListEdit edit;
        PinnedListState before;
        PinnedListState after;
    };

    std::deque<Step> steps_;
};

}
