/// Watches one file for changes made by anybody.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Result.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline {

struct FileEventSet {
    /// Written or extended.
    bool changed = false;
    /// Deleted, renamed or replaced: the watch no longer follows what the path names.
    bool removed = false;

    bool operator==(const FileEventSet&) const = default;
};

class FileEvents {
public:
    virtual ~FileEvents() = default;

    /// Calls `handler` for every batch of events of the file that `url` names now. Fails when there
    /// is none, unless the platform can wait for it: then the watch attaches without an event of
    /// its own once the file appears. Ending the subscription releases the file.
    [[nodiscard]] virtual Result<Subscription> watch(const FileURL& url,
                                                     std::function<void(FileEventSet)> handler) = 0;
};

}
