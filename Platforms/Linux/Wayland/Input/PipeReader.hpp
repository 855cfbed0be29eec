/// Reads what another program writes to a pipe, without waiting for it.
#pragma once

#include "Files/FileDescriptor.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace vireline::wayland {

class PipeReader : private NonCopyable {
public:
    static constexpr std::size_t maximumBytes = 16U << 20U;
    static constexpr std::chrono::milliseconds usualTimeout{2000};

    /// Takes the pipe's end for reading, which must not block. `done` is called once, from the
    /// event loop, with everything up to the end, or with nothing if that is too long or too late.
    /// It may destroy this object.
    PipeReader(xdg::FileDescriptor end, std::function<void(std::optional<std::string>)> done,
               std::chrono::milliseconds timeout = usualTimeout);

private:
    void read();
    void finish(std::optional<std::string> content);

    xdg::FileDescriptor end_;
    std::function<void(std::optional<std::string>)> done_;
    std::string content_;
    QSocketNotifier readable_;
    QTimer tooLate_;
};

}
