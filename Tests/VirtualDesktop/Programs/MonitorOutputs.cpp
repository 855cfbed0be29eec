/// Preloaded into a window manager that ignores monitors without an output. The virtual X server's
/// only output belongs to the first monitor, so this adds a copy of it for each of the others.
#include <dlfcn.h>

#include <array>
#include <cstddef>

namespace {

using XID = unsigned long;

/// As declared in the Xrandr library.
struct MonitorInfo {
    XID name;
    int primary;
    int automatic;
    int outputCount;
    int x;
    int y;
    int width;
    int height;
    int widthInMillimetres;
    int heightInMillimetres;
    XID* outputs;
};

constexpr std::size_t mostMonitors = 16;
/// Greater than any ID that the server assigns.
constexpr XID firstTwin = 0x20000000;

/// The real output, and the copies by the index of their monitor.
XID realOutput = 0;
std::array<XID, mostMonitors> twins{};

template <class Function>
Function* original(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void giveTwins(MonitorInfo* monitors, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        MonitorInfo& monitor = monitors[i];
        if (monitor.outputCount > 0) {
            realOutput = monitor.outputs[0];
        } else {
            twins.at(i) = firstTwin + i;
            monitor.outputs = &twins.at(i);
            monitor.outputCount = 1;
        }
    }
}

}

extern "C" {

MonitorInfo* XRRGetMonitors(void* display, XID window, int active, int* count) {
    using Function = MonitorInfo*(void*, XID, int, int*);
    auto* const monitors = original<Function>("XRRGetMonitors")(display, window, active, count);
    if (monitors != nullptr && *count > 0 && static_cast<std::size_t>(*count) <= mostMonitors)
        giveTwins(monitors, static_cast<std::size_t>(*count));
    return monitors;
}

void* XRRGetOutputInfo(void* display, void* resources, XID output) {
    using Function = void*(void*, void*, XID);
    return original<Function>("XRRGetOutputInfo")(display, resources,
                                                  output >= firstTwin ? realOutput : output);
}
}
