#include "Foundation/DevLog.hpp"

#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace vireline::DevLog {
namespace {

namespace fs = std::filesystem;

std::optional<std::string>& storedPath() {
    static std::optional<std::string> path;
    return path;
}

/// ISO 8601 in UTC with whole seconds, as in 2025-03-14T09:26:53Z.
std::string timestamp() {
    namespace chrono = std::chrono;
    const auto now = chrono::floor<chrono::seconds>(chrono::system_clock::now());
    const auto day = chrono::floor<chrono::days>(now);
    const chrono::year_month_day date{day};
    const chrono::hh_mm_ss time{now - day};
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                  static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                  static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return text.data();
}

bool writeNewFile(const fs::path& path, std::string_view content) {
    // With "x" this fails if anything exists at the path, even a symbolic link.
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::fopen(path.c_str(), "wbx"),
                                                         std::fclose};
    if (!file)
        return false;
    std::error_code failed;
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write, failed);
    const bool isWritten =
        !failed && std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
    return std::fclose(file.release()) == 0 && isWritten;
}

/// Creates the file by renaming a temporary one, so that a reader never sees it empty.
void createAtomically(const fs::path& path, std::string_view content) {
    fs::path temporary = path;
    temporary += ".new";
    std::error_code ignored;
    fs::remove(temporary, ignored);
    std::error_code failed;
    if (writeNewFile(temporary, content))
        fs::rename(temporary, path, failed);
    else
        failed = std::make_error_code(std::errc::io_error);
    if (failed)
        fs::remove(temporary, ignored);
}

void append(const fs::path& path, std::string_view line) {
    std::ofstream file{path, std::ios::binary | std::ios::app};
    file.write(line.data(), static_cast<std::streamsize>(line.size()));
}

/// Writes to regular files only: a symbolic link could lead out of the program's folder, and a pipe
/// could block. Anything else at the path is left alone.
void appendToPlainFile(const std::string& path, std::string_view line) {
    const fs::path file{path};
    std::error_code ignored;
    switch (fs::symlink_status(file, ignored).type()) {
    case fs::file_type::regular:
        append(file, line);
        break;
    case fs::file_type::not_found:
        createAtomically(file, line);
        break;
    default:
        break;
    }
}

Appender& storedAppender() {
    static Appender appender = appendToPlainFile;
    return appender;
}

}

void setPath(std::optional<std::string> path) {
    storedPath() = std::move(path);
}

const std::optional<std::string>& path() {
    return storedPath();
}

void setAppender(Appender appender) {
    storedAppender() = appender;
}

void write(std::string_view message) {
    const std::string line = "[" + timestamp() + "] " + std::string{message} + "\n";
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
    if (const auto& path = storedPath())
        storedAppender()(*path, line);
}

}
