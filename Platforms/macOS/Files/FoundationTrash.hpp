/// The user's Trash through the file manager.
#pragma once

#include "Platform/Trash.hpp"

#import <dispatch/dispatch.h>

namespace vireline::macos {

class FoundationTrash final : public Trash {
public:
    FoundationTrash();

    /// One file after the other, beside the main thread.
    void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) override;

private:
    dispatch_queue_t _Nonnull queue_;
};

}
