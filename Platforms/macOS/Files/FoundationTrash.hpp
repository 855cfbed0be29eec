/// Moves files to the user's Trash with NSFileManager.
#pragma once

#include "Platform/Files/Trash.hpp"

#import <dispatch/dispatch.h>

namespace vireline::macos {

class FoundationTrash final : public Trash {
public:
    FoundationTrash();

    /// Moves one file after the other, on a background queue.
    void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) override;

private:
    dispatch_queue_t _Nonnull queue_;
};

}
