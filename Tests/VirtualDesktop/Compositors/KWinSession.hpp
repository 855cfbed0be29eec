/// KWin as a Wayland compositor on the virtual X server. Its outputs lie side by side, have one
/// size and stay as they are.
#pragma once

#include "VirtualDesktop/Compositors/CompositorSession.hpp"
#include "VirtualDesktop/Compositors/KWinProcess.hpp"

#include <csignal>
#include <vector>

namespace vireline::desktop {

class KWinSession final : public CompositorSession {
public:
    /// Starts it with these outputs, which decide about the options' own. Throws if it does not
    /// start.
    KWinSession(const XClient& client, KWinProcess::Options options,
                const std::vector<Monitor>& monitors);

    [[nodiscard]] Environment environment() const override { return kwin_.environment(); }
    /// Throws unless they are those from the start.
    void setMonitors(const std::vector<Monitor>& monitors) override;
    void kill() const override { kwin_.process().signal(SIGKILL); }

private:
    KWinProcess kwin_;
};

}
