/// The user's Trash through the file manager.
#pragma once

#include "Platform/Trash.hpp"

namespace vireline::macos {

class FoundationTrash final : public Trash {
public:
    /// On the main thread's next turn.
    void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) override;
};

}
