/// Moves files to the user's Trash.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Result.hpp"

#include <functional>

namespace vireline {

class Trash {
public:
    virtual ~Trash() = default;

    /// Returns at once; `done` is called on the main thread, once, with the outcome.
    virtual void moveToTrash(const FileURL& url, std::function<void(Result<void>)> done) = 0;
};

}
