/// Qt's application object, always on the xcb platform plugin, whatever the environment asks of Qt
/// programs in general.
#pragma once

#include <QApplication>
#include <array>
#include <memory>

namespace vireline::x11 {

class XcbApplication {
public:
    /// Needs a running X server; Qt ends the process without one.
    XcbApplication();

    [[nodiscard]] QApplication& qt() noexcept { return *application_; }

private:
    std::array<std::string, 5> arguments_;
    /// Qt keeps references to these two for as long as it lives, and takes out what it understood.
    std::array<char*, 6> argumentPointers_{};
    int argumentCount_;
    std::unique_ptr<QApplication> application_;
};

}
