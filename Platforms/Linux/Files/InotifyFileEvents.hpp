/// The file watch of this platform. It can also be opened on a file that does not exist yet.
#pragma once

#include "Platform/FileEvents.hpp"

namespace vireline::x11 {

class InotifyFileEvents final : public FileEvents {
public:
    /// Waits silently while there is no file at `url`. After a report of `removed` nothing more
    /// comes. Fails only when the kernel gives no watch.
    [[nodiscard]] Result<Subscription> watch(const FileURL& url,
                                             std::function<void(FileEventSet)> handler) override;
};

}
