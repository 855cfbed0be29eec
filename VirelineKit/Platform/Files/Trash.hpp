/// Moves files to the user's Trash.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Result.hpp"

#include <functional>

namespace vireline {

class Trash {
public:
    virtual ~Trash() = default;

    /// Returns immediately. Calls `done` once, on the main thread, with the outcome.
    virtual void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) = 0;
};

}
