/// File watching through inotify. A watch can be set on a file that does not exist yet.
#pragma once

#include "Platform/Files/FileEvents.hpp"

namespace vireline::xdg {

class InotifyFileEvents final : public FileEvents {
public:
    /// Reports nothing while there is no file at `url`, and nothing after it has reported
    /// `removed`. Fails only if the kernel refuses a watch.
    [[nodiscard]] Result<Subscription> watch(const FileURL& url,
                                             std::function<void(FileEventSet)> handler) override;
};

}
