/// An open file descriptor with one owner.
#pragma once

#include <unistd.h>

#include <utility>

namespace vireline::xdg {

class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, none)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            close();
            number_ = std::exchange(other.number_, none);
        }
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    [[nodiscard]] int get() const noexcept { return number_; }
    [[nodiscard]] explicit operator bool() const noexcept { return number_ != none; }

    /// Closes it now. Returns false and sets errno if a write error is only reported on closing.
    bool close() noexcept {
        const int number = std::exchange(number_, none);
        return number == none || ::close(number) == 0;
    }

private:
    static constexpr int none = -1;

    int number_ = none;
};

}
