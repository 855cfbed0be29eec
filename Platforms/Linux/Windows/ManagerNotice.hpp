/// Tells the log, once for each window manager, that it moves no windows for other programs: the
/// features that need it do nothing then.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <xcb/xcb.h>

namespace vireline {
class RunLoop;
}

namespace vireline::x11 {

class WindowReader;
class X11Connection;

class ManagerNotice {
public:
    ManagerNotice(X11Connection& connection, const WindowReader& reader, RunLoop& runLoop);
    ManagerNotice(const ManagerNotice&) = delete;
    ManagerNotice& operator=(const ManagerNotice&) = delete;
    ManagerNotice(ManagerNotice&&) = delete;
    ManagerNotice& operator=(ManagerNotice&&) = delete;
    ~ManagerNotice() = default;

private:
    void handle(const xcb_generic_event_t& event);
    void lookSoon();
    void look();

    X11Connection& connection_;
    const WindowReader& reader_;
    RunLoop& runLoop_;
    Timer look_;
    Lifetime lifetime_;
    Subscription events_;
};

}
