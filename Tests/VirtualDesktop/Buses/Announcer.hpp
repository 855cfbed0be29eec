/// An app that announces a count, progress and urgency for its tile on a session bus.
#pragma once

#include "VirtualDesktop/Buses/BusClient.hpp"

#include <string>

namespace vireline::desktop {

class Announcer {
public:
    /// Throws if there is no bus at this address.
    explicit Announcer(const std::string& address) : bus_(address) {}

    /// `properties` is a dictionary in GVariant's text format. Sent when this returns.
    void announce(const std::string& app, const std::string& properties) const;
    /// As above, but perhaps sent later.
    void announceSoon(const std::string& app, const std::string& properties) const;

private:
    BusClient bus_;
};

}
