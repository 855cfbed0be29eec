/// The running applications, as NSWorkspace lists and announces them.
#pragma once

#include "Platform/Applications/RunningApplications.hpp"

namespace vireline::macos {

class WorkspaceApplications final : public RunningApplications {
public:
    [[nodiscard]] std::vector<RunningApplication> running() const override;
    [[nodiscard]] std::vector<RunningApplication>
    instances(const std::string& bundleID) const override;

    /// An app that has exited in the meantime is ignored.
    void hide(const RunningApplication& app) override;
    void terminate(const RunningApplication& app) override;

    [[nodiscard]] Subscription observeWillLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidLaunch(Handler handler) override;
    [[nodiscard]] Subscription observeDidTerminate(Handler handler) override;
};

}
