/// Follows what an absolute path names through creation, changes and deletion, using inotify:
/// without polling, and without wake-ups for other files in the same folders.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline::xdg {

/// What happened to the path since the last report; several flags may be set at once.
struct PathEvents {
    /// The path names something that it did not name before.
    bool appeared = false;
    /// The file was written, or an entry of the folder was created, removed or written. Also set if
    /// the kernel's event queue overflowed.
    bool changed = false;
    /// The path no longer names what it did: deleted, renamed or replaced.
    bool removed = false;

    bool operator==(const PathEvents&) const = default;
};

/// Calls `handler` from the event loop for as long as the subscription lives; the handler may end
/// it. While the path names nothing, the nearest existing parent folder is watched. Symbolic links
/// anywhere in the path are followed and watched themselves. Fails if the kernel refuses a required
/// watch; if that happens later, `removed` is reported.
[[nodiscard]] Result<Subscription> followPath(const FileURL& url,
                                              std::function<void(PathEvents)> handler);

}
