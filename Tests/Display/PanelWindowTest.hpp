/// Windows of docks on a virtual desktop with several displays.
#pragma once

#include "Display/WindowTest.hpp"
#include "Foundation/NonCopyable.hpp"

#include <algorithm>
#include <string>

namespace vireline::test {

class PanelWindowTest : public WindowTest {
protected:
    static desktop::PixelRect frameOf(const std::string& monitor) {
        return client().frame(windowOf(monitor)).value_or(desktop::PixelRect{});
    }

    static bool hasAtom(xcb_window_t window, const std::string& property, const std::string& atom) {
        const auto atoms = client().atoms(window, property);
        return std::ranges::find(atoms, client().atom(atom)) != atoms.end();
    }

    void moveTo(const std::string& monitor, Point view) {
        desk().pointer().moveTo(pixelAt(monitor, view));
    }

    /// Stands where a compositor would; nothing is composited.
    class Compositor : private NonCopyable {
    public:
        Compositor() : window_(client().createWindow({0, 0, 1, 1}, 0)) {
            xcb_set_selection_owner(client().get(), window_, client().atom("_NET_WM_CM_S0"),
                                    XCB_CURRENT_TIME);
            client().sync();
        }
        ~Compositor() {
            client().destroy(window_);
            client().sync();
        }

    private:
        xcb_window_t window_;
    };

    EventLog log;
};

}
