#include "Icons/BoundedFile.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vireline::x11::BoundedFile {
namespace {

class Descriptor {
public:
    /// A pipe without a writer would hold an ordinary open up for ever.
    explicit Descriptor(const std::string& path)
        : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    Descriptor(Descriptor&&) = delete;
    Descriptor& operator=(Descriptor&&) = delete;
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }

    /// The size of a regular file.
    [[nodiscard]] std::optional<std::size_t> size() const {
        struct stat info{};
        if (number_ < 0 || ::fstat(number_, &info) != 0 || !S_ISREG(info.st_mode))
            return std::nullopt;
        return static_cast<std::size_t>(info.st_size);
    }

    [[nodiscard]] ssize_t read(char* to, std::size_t bytes) const {
        ssize_t got = -1;
        do {
            got = ::read(number_, to, bytes);
        } while (got < 0 && errno == EINTR);
        return got;
    }

private:
    int number_;
};

}

std::optional<QByteArray> read(const std::string& path, std::size_t maximumBytes) {
    const Descriptor file{path};
    const auto size = file.size();
    if (!size || *size > maximumBytes)
        return std::nullopt;
    QByteArray content{static_cast<qsizetype>(*size), Qt::Uninitialized};
    std::size_t filled = 0;
    while (filled < *size) {
        const ssize_t got = file.read(content.data() + filled, *size - filled);
        if (got < 0)
            return std::nullopt;
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    content.truncate(static_cast<qsizetype>(filled));
    return content;
}

}
