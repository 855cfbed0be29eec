/// How the fake and the port for X11 list an app's windows and bring them forward.
#include "Contract/OpenWindows.hpp"
#include "Display/AccessibilityDesktops.hpp"

#include <type_traits>

namespace vireline {
namespace {

template <class Desktop>
class WithPort : public Desktop {
protected:
    [[nodiscard]] Accessibility& accessibility() { return this->port; }
};

using Fake = WithPort<contract::FakeDesktop>;
using Ewmh = WithPort<contract::EwmhDesktop>;

struct X11Names {
    template <class Desktop>
    static std::string GetName(int /*index*/) {
        return std::is_same_v<Desktop, Fake> ? "Fake" : "Ewmh";
    }
};

}

using X11Desktops = testing::Types<Fake, Ewmh>;
INSTANTIATE_TYPED_TEST_SUITE_P(X11, OpenWindowsContract, X11Desktops, X11Names);

}
