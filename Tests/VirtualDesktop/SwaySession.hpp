/// The compositor sway on the virtual X server.
#pragma once

#include "VirtualDesktop/ChildProcess.hpp"
#include "VirtualDesktop/CompositorSession.hpp"
#include "VirtualDesktop/Monitors.hpp"
#include "VirtualDesktop/XClient.hpp"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

class SwaySession final : public CompositorSession {
public:
    /// Starts it with these outputs. Its files are in `folder`. Throws if it does not start.
    SwaySession(const XClient& client, const std::string& display, std::filesystem::path folder,
                const std::vector<Monitor>& monitors);

    [[nodiscard]] Environment environment() const override;
    void setMonitors(const std::vector<Monitor>& monitors) override;
    void kill() const override;

private:
    void start(const std::string& display, std::size_t outputs);
    void command(const std::vector<std::string>& words) const;
    void place(Output& output, const Monitor& monitor) const;
    void close(const Output& output) const;

    std::filesystem::path folder_;
    std::string socket_;
    std::optional<ChildProcess> sway_;
};

}
