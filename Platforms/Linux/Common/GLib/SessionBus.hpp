/// The user's session bus, if there is one.
#pragma once

#include "Foundation/Result.hpp"
#include "GLib/GLibHandles.hpp"

#include <functional>

namespace vireline::xdg::SessionBus {

using Connection = GObjectHandle<GDBusConnection>;

/// Calls `done` from the main loop with the connection shared by the whole program. Never starts a
/// bus, and the program survives the bus going away.
void connect(std::function<void(Result<Connection>)> done);

}
