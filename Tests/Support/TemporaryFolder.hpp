/// A temporary folder for one test, deleted with its content at the end.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <filesystem>

namespace vireline::test {

class TemporaryFolder : private NonCopyable {
public:
    TemporaryFolder();
    ~TemporaryFolder();

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

private:
    std::filesystem::path path_;
};

}
