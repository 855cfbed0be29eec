/// Runs scripts in KWin, over the session bus.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Result.hpp"
#include "GLib/SessionBus.hpp"

#include <functional>
#include <string>

namespace vireline::wayland {

class KWinConnection : private NonCopyable {
public:
    using Bus = xdg::SessionBus::Connection;
    using Connect = std::function<void(std::function<void(Result<Bus>)>)>;

    explicit KWinConnection(const Connect& connect);
    ~KWinConnection();

    /// Whether KWin is on the bus; known some time after the start.
    [[nodiscard]] bool isAvailable() const noexcept { return isAvailable_; }

    /// Waits up to `seconds` for the script to finish. Its output is discarded.
    Result<void> run(const std::string& script, double seconds);

private:
    struct Events;
    class Deadline;

    void connected(Result<Bus> bus);
    [[nodiscard]] Result<xdg::GLibHandle<GVariant, g_variant_unref>>
    call(const char* path, const char* interfaceName, const char* method, GVariant* parameters,
         const Deadline& deadline);
    [[nodiscard]] Result<void> runLoaded(const std::string& number, const Deadline& deadline);
    void unload(const std::string& name, const Deadline& deadline);

    Bus bus_;
    unsigned int watch_ = 0;
    bool isAvailable_ = false;
    Lifetime lifetime_;
};

}
