/// Checks that the session bus responds before anything blocks on it: Qt connects to it on its own,
/// with a timeout of half a minute.
#pragma once

#include <string>

namespace vireline::xdg::BusProbe {

/// False if the bus accepts the connection but does not respond within `timeout` seconds. A bus
/// that cannot be reached fails at once instead of blocking, and therefore counts as answering.
/// `address` is a D-Bus address, which may list several alternatives.
[[nodiscard]] bool answers(const std::string& address, unsigned int timeout);

/// Where the programs of this session look for the bus.
[[nodiscard]] std::string sessionAddress();

/// Makes everything in this process do without the session bus. Launched apps get the environment
/// that this program was started with.
void hideSessionBus();

}
