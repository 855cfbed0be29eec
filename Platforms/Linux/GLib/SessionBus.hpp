/// The user's session bus, if there is one.
#pragma once

#include "Foundation/Result.hpp"
#include "GLib/GLibHandles.hpp"

#include <functional>

namespace vireline::x11::SessionBus {

using Connection = GObjectHandle<GDBusConnection>;

/// Gives `done`, from the main loop, the connection that the whole program shares. Never starts a
/// bus, and one that ends does not take the program along.
void connect(std::function<void(Result<Connection>)> done);

}
