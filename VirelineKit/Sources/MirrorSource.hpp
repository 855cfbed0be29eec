/// Follows the apps that are pinned in the desktop's own dock. Change notifications are debounced:
/// a burst of them causes one reading.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Platform.hpp"
#include "Sources/DockPreferencesReader.hpp"
#include "Sources/PathWatcher.hpp"

#include <functional>
#include <span>
#include <vector>

namespace vireline {

class MirrorSource : private NonCopyable {
public:
    /// Seconds without a change notification before a reading.
    static constexpr double debounceDelay = 0.3;

    explicit MirrorSource(const Platform& platform);

    /// Reads immediately, and from then on after every change.
    void start();

    /// Reads the list and delivers it, even if it has not changed.
    void emit();

    /// Reads once `debounceDelay` has passed without another call.
    void scheduleEmit();

    /// The entries whose apps are installed, in their order. The file manager is put first if it is
    /// not among them. Entries with the same identifier are not merged.
    [[nodiscard]] std::vector<AppRef> resolve(std::span<const ParsedDockEntry> entries) const;

    /// Called with every reading.
    std::function<void(const std::vector<AppRef>&)> onChange;

private:
    DockPreferences& preferences_;
    const ApplicationCatalog& catalog_;
    const FileSystem& fileSystem_;
    RunLoop& runLoop_;
    Subscription changes_;
    Timer debounce_;
    /// Declared before the watcher, because its callback is guarded by this.
    Lifetime lifetime_;
    PathWatcher watcher_;
};

}
