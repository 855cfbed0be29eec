/// Whether the session bus can be relied on before anything waits for it: Qt connects to it on its
/// own, with a patience of half a minute.
#pragma once

#include <string>

namespace vireline::x11::BusProbe {

/// False for a bus that lets one in and then says nothing for as long as `patience`, in whole
/// seconds. One that is not there at all keeps nobody waiting, which counts as an answer. `address`
/// is as D-Bus has it, with any number of alternatives.
[[nodiscard]] bool answers(const std::string& address, unsigned int patience);

/// Where the programs of this session look for their bus.
[[nodiscard]] std::string sessionAddress();

/// Has everything in this process do without the session bus. Apps that are launched get the
/// environment that this program was given.
void hideSessionBus();

}
