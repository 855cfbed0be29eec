/// Captures what the program logs during the lifetime of this object, in a temporary folder that is
/// deleted with it.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Support/TemporaryFolder.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::test {

class LoggedLines : private NonCopyable {
public:
    LoggedLines();
    ~LoggedLines();

    /// The messages so far, oldest first, without timestamps.
    [[nodiscard]] std::vector<std::string> messages() const;
    /// The number of times that exactly this message was logged.
    [[nodiscard]] int count(std::string_view message) const;
    /// Discards what was logged so far.
    void clear();

    /// The log file, in a folder that this test alone uses.
    [[nodiscard]] std::filesystem::path file() const { return folder_.path() / "vireline.log"; }
    [[nodiscard]] const std::filesystem::path& folder() const noexcept { return folder_.path(); }

private:
    TemporaryFolder folder_;
    std::ptrdiff_t forgotten_ = 0;
};

}
