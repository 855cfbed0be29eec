/// Qt's application object on a given platform plugin, whatever platform the environment selects
/// for Qt programs.
#pragma once

#include <QApplication>
#include <array>
#include <memory>
#include <string>

namespace vireline::xdg {

class PluginApplication {
public:
    /// What happens to popup menus when another program, or none, gets the keyboard.
    enum class InactivePopups { close, stay };

    /// `plugin` is the name of Qt's plugin for the window system, which must be running, because Qt
    /// aborts the process otherwise.
    PluginApplication(const std::string& plugin, InactivePopups inactivePopups);

    [[nodiscard]] QApplication& qt() noexcept { return *application_; }

private:
    std::array<std::string, 5> arguments_;
    /// Qt keeps references to these two for its lifetime, and removes the arguments it has handled.
    std::array<char*, 6> argumentPointers_{};
    int argumentCount_;
    std::unique_ptr<QApplication> application_;
};

}
