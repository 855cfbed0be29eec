/// Starts programs and opens addresses without making the main thread wait.
#pragma once

#include "Applications/Entries/DesktopEntry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/Result.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vireline::x11 {

class Launcher {
public:
    using Outcome = std::function<void(Result<void>)>;

    /// Starts the entry's program. `onFailure` is called if that fails at once, or if the program
    /// ends with an error; perhaps long after.
    void launch(const DesktopEntry& entry, const std::string& startupID,
                std::function<void(const PlatformError&)> onFailure);

    /// Opens the first of `uris` that the user's programs for such things can open; failing that
    /// the last, if it is a folder, with the program of the entry at `fileManagerPath`. `done`
    /// hears of the last failure.
    void open(std::vector<std::string> uris, std::string fileManagerPath, Outcome done);

private:
    Lifetime lifetime_;
};

}
