/// What the program logs while this lives: the log goes to a file in a folder of the test's own,
/// which goes with it.
#pragma once

#include "Support/TemporaryFolder.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::test {

class LoggedLines {
public:
    LoggedLines();
    LoggedLines(const LoggedLines&) = delete;
    LoggedLines& operator=(const LoggedLines&) = delete;
    LoggedLines(LoggedLines&&) = delete;
    LoggedLines& operator=(LoggedLines&&) = delete;
    ~LoggedLines();

    /// The messages so far, oldest first, without their time stamps.
    [[nodiscard]] std::vector<std::string> messages() const;
    /// How often exactly this message was written.
    [[nodiscard]] int count(std::string_view message) const;
    /// Forgets what was logged so far.
    void clear();

    /// The log file, and the folder that is the test's alone.
    [[nodiscard]] std::filesystem::path file() const { return folder_.path() / "vireline.log"; }
    [[nodiscard]] const std::filesystem::path& folder() const noexcept { return folder_.path(); }

private:
    TemporaryFolder folder_;
    std::ptrdiff_t forgotten_ = 0;
};

}
