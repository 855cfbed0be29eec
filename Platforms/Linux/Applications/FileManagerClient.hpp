/// Asks the desktop's file manager to show files, over the session bus.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/Result.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vireline::x11 {

class FileManagerClient {
public:
    /// A file manager that has to be started first may take a while.
    static constexpr int timeoutMilliseconds = 8000;

    /// Shows the files selected in their folders. `done` hears of the outcome on the main thread,
    /// never at once; a failure means that the files may not be shown.
    void showItems(std::vector<std::string> uris, std::function<void(Result<void>)> done);

private:
    Lifetime lifetime_;
};

}
