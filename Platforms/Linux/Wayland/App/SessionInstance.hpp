/// Ensures one running instance per Wayland session: by a lock on a file in the user's runtime
/// folder, which the kernel releases when its owner exits, even after a crash. Further starts are
/// reported through a socket beside it. Works without a session bus.
#pragma once

#include "Files/FileDescriptor.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Toolkit/SecondStarts.hpp"

#include <QSocketNotifier>
#include <memory>
#include <string>

namespace vireline::wayland {

class SessionInstance final : public xdg::SecondStarts, private NonCopyable {
public:
    /// Makes this process the running instance of the session that the compositor's socket
    /// identifies. Returns null if there is one already, which has then been asked to show its
    /// settings. If the folder cannot be used, this process also becomes the instance.
    [[nodiscard]] static std::unique_ptr<SessionInstance> claim(const std::string& folder,
                                                                const std::string& session);

    /// Further starts before the first observer are delivered to it. Needs the application object.
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    SessionInstance(xdg::FileDescriptor lock, xdg::FileDescriptor socket);

    void accept();

    xdg::FileDescriptor lock_;
    xdg::FileDescriptor socket_;
    CallbackList<> starts_;
    /// Destroyed before the socket that it watches.
    std::unique_ptr<QSocketNotifier> notifier_;
};

}
