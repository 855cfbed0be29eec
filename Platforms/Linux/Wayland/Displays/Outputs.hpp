/// The displays as a connection of our own knows them, by the names of their connectors.
#pragma once

#include "Connection/Proxies.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace vireline::wayland {

class Output : private NonCopyable {
public:
    /// `onChange` is called when anything below has changed.
    Output(Proxy<wl_output> output, std::function<void()> onChange);
    ~Output();

    /// Requests the name from the compositor.
    void learnName(zxdg_output_manager_v1& manager);

    [[nodiscard]] wl_output* get() const noexcept { return output_.get(); }
    /// Such as "HDMI-A-1"; empty if not known yet.
    [[nodiscard]] const std::string& name() const noexcept { return name_; }
    /// Whole pixels per point, rounded up.
    [[nodiscard]] int scale() const noexcept { return scale_; }
    /// The time from one frame to the next.
    [[nodiscard]] std::chrono::microseconds interval() const noexcept { return interval_; }

private:
    struct Events;

    Proxy<wl_output> output_;
    Proxy<zxdg_output_v1> nameOnly_;
    std::function<void()> onChange_;
    std::string name_;
    int scale_ = 1;
    std::chrono::microseconds interval_;
};

class Outputs : private NonCopyable {
public:
    /// The connection must outlive this object.
    explicit Outputs(WaylandConnection& connection);

    /// Null if there is no such display; otherwise valid until the next change.
    [[nodiscard]] const Output* named(std::string_view name) const;

    [[nodiscard]] Subscription observe(std::function<void()> handler) {
        return observers_.add(std::move(handler));
    }

private:
    void update();

    WaylandConnection& connection_;
    Proxy<zxdg_output_manager_v1> manager_;
    /// By the compositor's numbers.
    std::map<std::uint32_t, std::unique_ptr<Output>> outputs_;
    CallbackList<> observers_;
    Subscription globals_;
};

}
