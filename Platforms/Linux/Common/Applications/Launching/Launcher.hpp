/// Starts programs and opens URIs without blocking the main thread.
#pragma once

#include "Applications/Entries/DesktopEntry.hpp"
#include "Applications/Launching/StartupNotices.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/Result.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vireline::xdg {

class Launcher {
public:
    using Outcome = std::function<void(Result<void>)>;

    /// Starts the entry's program. `onFailure` is called if that fails at once, or if the program
    /// exits with an error, perhaps much later.
    void launch(const DesktopEntry& entry, const LaunchPass& pass,
                std::function<void(const PlatformError&)> onFailure);

    /// Starts one of the entry's actions. Only failures to start at once are known.
    void perform(const DesktopEntry& entry, const std::string& actionID, const LaunchPass& pass,
                 std::function<void(const PlatformError&)> onFailure);

    /// Opens the first of `uris` for which a default program can be started; if none can, opens the
    /// last one, if it is a folder, with the program of the entry at `fileManagerPath`. `done`
    /// receives the last error.
    void open(std::vector<std::string> uris, std::string fileManagerPath, Outcome done);

private:
    Lifetime lifetime_;
};

}
