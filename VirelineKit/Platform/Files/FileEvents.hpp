/// Watches a file for changes by any program.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline {

struct FileEventSet {
    /// Written or extended.
    bool changed = false;
    /// Deleted, renamed or replaced: the watched file is no longer the one at the path.
    bool removed = false;

    bool operator==(const FileEventSet&) const = default;
};

class FileEvents {
public:
    virtual ~FileEvents() = default;

    /// Calls `handler` for every batch of events of the file that is at `url` now. If there is
    /// none, the call fails, unless the platform can wait for the file; the watch then starts once
    /// the file appears, without an event for that. Ending the subscription releases the file.
    [[nodiscard]] virtual Result<Subscription> watch(const FileURL& url,
                                                     std::function<void(FileEventSet)> handler) = 0;
};

}
