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

    /// Opens the first of `uris` for which there is a program that can. `done` hears of the last
    /// failure if there is none.
    void open(std::vector<std::string> uris, Outcome done);

private:
    Lifetime lifetime_;
};

}
