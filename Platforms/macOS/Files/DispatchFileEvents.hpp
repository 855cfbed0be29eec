/// File events through dispatch sources, on descriptors that are opened for events only.
#pragma once

#include "Platform/FileEvents.hpp"

namespace vireline::macos {

class DispatchFileEvents final : public FileEvents {
public:
    /// Fails with the system's error number when the file is missing or cannot be opened. Does not
    /// keep the volume busy. Delivers on the main queue.
    [[nodiscard]] Result<Subscription> watch(const FileURL& url,
                                             std::function<void(FileEventSet)> handler) override;
};

}
