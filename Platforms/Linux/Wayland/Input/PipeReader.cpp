#include "Input/PipeReader.hpp"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace vireline::wayland {

PipeReader::PipeReader(xdg::FileDescriptor end,
                       std::function<void(std::optional<std::string>)> done,
                       std::chrono::milliseconds timeout)
    : end_(std::move(end)), done_(std::move(done)), readable_(end_.get(), QSocketNotifier::Read) {
    QObject::connect(&readable_, &QSocketNotifier::activated, &readable_, [this] { read(); });
    tooLate_.setSingleShot(true);
    QObject::connect(&tooLate_, &QTimer::timeout, &readable_, [this] { finish(std::nullopt); });
    tooLate_.start(timeout);
}

void PipeReader::read() {
    std::array<char, 4096> part{};
    const ssize_t length = ::read(end_.get(), part.data(), part.size());
    if (length < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (length < 0)
        return finish(std::nullopt);
    if (length == 0)
        return finish(std::move(content_));
    content_.append(part.data(), static_cast<std::size_t>(length));
    if (content_.size() > maximumBytes)
        finish(std::nullopt);
}

void PipeReader::finish(std::optional<std::string> content) {
    readable_.setEnabled(false);
    tooLate_.stop();
    // A program that still writes must not wait for a reader.
    end_.close();
    const auto done = std::exchange(done_, nullptr);
    done(std::move(content));
}

}
