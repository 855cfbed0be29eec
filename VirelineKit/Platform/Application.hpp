/// The program as the desktop sees it: its standing, its main menu, its event loop and its end.
#pragma once

#include "Foundation/CallbackList.hpp"
#include "Presentation/Menu.hpp"

#include <cstdint>

namespace vireline {

class Application {
public:
    virtual ~Application() = default;

    /// No icon in the desktop's own dock, no visible menu bar.
    virtual void becomeAccessory() = 0;

    /// Key equivalents of `menu` work in the program's own windows from now on.
    virtual void installMainMenu(const MainMenu& menu) = 0;

    /// Runs the event loop until `terminate`; `onFinishedLaunching` is its first event. Returns the
    /// process's exit code.
    virtual int run(std::function<void()> onFinishedLaunching) = 0;

    virtual void terminate() = 0;

    [[nodiscard]] virtual std::int64_t processIdentifier() const = 0;

    /// The user started the program a second time, which asks this one for its settings.
    [[nodiscard]] virtual Subscription observeSecondStart(std::function<void()> handler) = 0;
};

}
