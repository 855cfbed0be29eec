/// What apps announce over the session bus with the signals of `com.canonical.Unity.LauncherEntry`.
/// GIO's thread takes the signals, so that even a flood of them costs the main thread only what the
/// kit asks for.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Platform/Applications/LauncherAnnouncements.hpp"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace vireline::xdg {

class DesktopEntryCatalog;

class BusAnnouncements final : public LauncherAnnouncements, private NonCopyable {
public:
    explicit BusAnnouncements(const DesktopEntryCatalog& catalog);
    ~BusAnnouncements() override;

    [[nodiscard]] std::map<std::string, TileStatus> current() override;
    [[nodiscard]] Subscription observe(std::function<void()> handler) override {
        return changes_.add(std::move(handler));
    }

private:
    class Mailbox;
    class Connection;

    const DesktopEntryCatalog& catalog_;
    CallbackList<> changes_;
    std::shared_ptr<Mailbox> mailbox_;
    std::shared_ptr<Connection> connection_;
};

}
