/// Keeps the program's copy of the apps pinned in the desktop's own dock current. A burst of
/// signals that the dock changed makes one reading.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Platform.hpp"
#include "Sources/DockPreferencesReader.hpp"
#include "Sources/PathWatcher.hpp"

#include <functional>
#include <span>
#include <vector>

namespace vireline {

class MirrorSource {
public:
    /// Seconds of quiet before a reading.
    static constexpr double debounceDelay = 0.3;

    explicit MirrorSource(const Platform& platform);
    MirrorSource(const MirrorSource&) = delete;
    MirrorSource& operator=(const MirrorSource&) = delete;
    MirrorSource(MirrorSource&&) = delete;
    MirrorSource& operator=(MirrorSource&&) = delete;
    ~MirrorSource() = default;

    /// Reads once, without delay, and again after every change from now on.
    void start();

    /// Reads and delivers the list, whether or not it differs from the one before.
    void emit();

    /// Reads once nothing has asked for it for `debounceDelay`.
    void scheduleEmit();

    /// The installed apps among the entries, in their order, with the file manager in front unless
    /// the entries place it. Entries with one identifier are not merged.
    [[nodiscard]] std::vector<AppRef> resolve(std::span<const ParsedDockEntry> entries) const;

    /// Receives every reading.
    std::function<void(const std::vector<AppRef>&)> onChange;

private:
    DockPreferences& preferences_;
    const ApplicationCatalog& catalog_;
    const FileSystem& fileSystem_;
    RunLoop& runLoop_;
    Subscription changes_;
    Timer debounce_;
    /// Before the watcher, whose callback it guards from the start.
    Lifetime lifetime_;
    PathWatcher watcher_;
};

}
