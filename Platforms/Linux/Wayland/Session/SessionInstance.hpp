/// Ensures one running instance per Wayland session with a locked file in the user's runtime
/// folder. The kernel releases the lock when its holder exits, even after a crash.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Toolkit/SecondStarts.hpp"

#include <QSocketNotifier>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace vireline::wayland {

class SessionInstance final : public xdg::SecondStarts, private NonCopyable {
public:
    /// Makes this process the session's instance. Returns null if there is one already, which has
    /// then been asked to show its settings. Needs no event loop. `display` is the compositor's
    /// name, as in WAYLAND_DISPLAY. In a folder that cannot be written to, every start becomes the
    /// instance.
    [[nodiscard]] static std::unique_ptr<SessionInstance>
    claim(const std::filesystem::path& runtimeFolder, const std::string& display);

    ~SessionInstance() override;

    /// Further starts before the first observer are reported to it. Needs the application object.
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    SessionInstance(int lock, int socket) : lock_(lock), socket_(socket) {}

    void read();

    /// The descriptors of the lock and the socket; -1 without them.
    int lock_;
    int socket_;
    CallbackList<> starts_;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}
