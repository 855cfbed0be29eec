/// The freedesktop.org Trash through GIO, which picks the trash folder of the file's own volume.
#pragma once

#include "Platform/Files/Trash.hpp"

namespace vireline::xdg {

class GioTrash final : public Trash {
public:
    void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) override;
};

}
