/// Follows what an absolute path names, whoever puts it there, changes it or takes it away, through
/// inotify: without polling, and without a wake-up for anything else in the same folders.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline::x11 {

/// What happened to the path since the last report; several may be true at once.
struct PathEvents {
    /// The path names something now that it did not name before.
    bool appeared = false;
    /// The file was written, or an entry of the folder came, went or was written. Also reported
    /// when the kernel lost events.
    bool changed = false;
    /// The path no longer names what it did: deleted, renamed or replaced.
    bool removed = false;

    bool operator==(const PathEvents&) const = default;
};

/// Calls `handler` from the event loop for as long as the subscription lives, which the handler may
/// end. While the path names nothing, the nearest existing folder above it is watched. Symbolic
/// links anywhere in the path are followed, and watched themselves. Fails, as does a later attempt
/// with a report of `removed`, when the kernel refuses a watch that is needed.
[[nodiscard]] Result<Subscription> followPath(const FileURL& url,
                                              std::function<void(PathEvents)> handler);

}
