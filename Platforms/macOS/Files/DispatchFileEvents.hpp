/// File events from dispatch sources, on descriptors that are opened for events only.
#pragma once

#include "Platform/Files/FileEvents.hpp"

namespace vireline::macos {

class DispatchFileEvents final : public FileEvents {
public:
    /// Fails with the system's error number if the file is missing or cannot be opened. Does not
    /// prevent the volume from being unmounted. Calls the handler on the main queue.
    [[nodiscard]] Result<Subscription> watch(const FileURL& url,
                                             std::function<void(FileEventSet)> handler) override;
};

}
