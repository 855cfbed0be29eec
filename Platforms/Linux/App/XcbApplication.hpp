/// Qt's application object, always on the xcb platform plugin, whatever platform the environment
/// selects for Qt programs.
#pragma once

#include <QApplication>
#include <array>
#include <memory>

namespace vireline::x11 {

class XcbApplication {
public:
    /// Needs a running X server, because Qt aborts the process without one.
    XcbApplication();

    [[nodiscard]] QApplication& qt() noexcept { return *application_; }

private:
    std::array<std::string, 5> arguments_;
    /// Qt keeps references to these two for its lifetime, and removes the arguments it has handled.
    std::array<char*, 6> argumentPointers_{};
    int argumentCount_;
    std::unique_ptr<QApplication> application_;
};

}
