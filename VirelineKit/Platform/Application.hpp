/// The program as an application of the desktop: activation policy, main menu, event loop,
/// termination.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Presentation/Menu.hpp"

#include <cstdint>

namespace vireline {

class Application {
public:
    virtual ~Application() = default;

    /// From now on, the program has no icon in the desktop's own dock and no visible menu bar.
    virtual void becomeAccessory() = 0;

    /// From now on, the key equivalents of `menu` work in the program's own windows.
    virtual void installMainMenu(const MainMenu& menu) = 0;

    /// Runs the event loop until `terminate` is called. Calls `onFinishedLaunching` as its first
    /// event. Returns the process's exit code.
    virtual int run(std::function<void()> onFinishedLaunching) = 0;

    virtual void terminate() = 0;

    [[nodiscard]] virtual std::int64_t processIdentifier() const = 0;

    /// Calls `handler` when the user starts the program a second time, which is a request for the
    /// settings.
    [[nodiscard]] virtual Subscription observeSecondStart(std::function<void()> handler) = 0;
};

}
