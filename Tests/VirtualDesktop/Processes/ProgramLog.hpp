/// The log file of the program under test, read again on each call.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::desktop {

class ProgramLog {
public:
    explicit ProgramLog(std::filesystem::path file) : file_(std::move(file)) {}

    /// All lines, as in the file.
    [[nodiscard]] std::vector<std::string> lines() const;

    /// All messages, without timestamps.
    [[nodiscard]] std::vector<std::string> messages() const;

    /// The number of messages that begin with `prefix`.
    [[nodiscard]] int count(std::string_view prefix) const;

    /// The last message that begins with `prefix`; empty if there is none.
    [[nodiscard]] std::string last(std::string_view prefix) const;

    /// Waits until at least `times` messages begin with `prefix`.
    [[nodiscard]] bool reaches(std::string_view prefix, int times = 1) const;

    [[nodiscard]] const std::filesystem::path& file() const noexcept { return file_; }

private:
    std::filesystem::path file_;
};

}
