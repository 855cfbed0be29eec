/// Asks the desktop's file manager to show files, over the session bus.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/Result.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vireline::xdg {

class FileManagerClient {
public:
    /// Generous, because the file manager may have to be started first.
    static constexpr int timeoutMilliseconds = 8000;

    /// Shows the files, selected, in their folders. `done` is called on the main thread, never
    /// synchronously; after a failure the files may or may not be shown.
    void showItems(std::vector<std::string> uris, std::function<void(Result<void>)> done);

private:
    Lifetime lifetime_;
};

}
