#include "Input/PipeReader.hpp"
#include "Linux/EventLoop.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vireline::wayland {
namespace {

using namespace std::chrono_literals;

/// Writes to a pipe what a reader reads. The reader must be gone before the other end.
class PipeTest : public testing::Test {
protected:
    using Content = std::optional<std::string>;

    PipeTest() {
        test::testApplication();
        // Writing without a reader is an error here, and not the end of the tests.
        (void)std::signal(SIGPIPE, SIG_IGN);
    }

    void open(std::chrono::milliseconds timeout = PipeReader::usualTimeout) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
            throw std::runtime_error{"no pipe"};
        writeEnd_ = xdg::FileDescriptor{ends[1]};
        reader_ = std::make_unique<PipeReader>(
            xdg::FileDescriptor{ends[0]},
            [this](Content content) { results_.push_back(std::move(content)); }, timeout);
    }
    /// Returns whether all of it fits into the pipe.
    bool write(const std::string& text) const {
        return ::write(writeEnd_.get(), text.data(), text.size()) == std::ssize(text);
    }
    [[nodiscard]] bool isDone() const { return !results_.empty(); }

    xdg::FileDescriptor writeEnd_;
    std::unique_ptr<PipeReader> reader_;
    std::vector<Content> results_;
};

TEST_F(PipeTest, IsReadToItsEnd) {
    open();
    EXPECT_TRUE(write("first "));
    test::deliverPendingEvents();
    EXPECT_FALSE(isDone());

    EXPECT_TRUE(write("second"));
    writeEnd_.close();

    EXPECT_TRUE(test::waitUntil([&] { return isDone(); }));
    EXPECT_EQ(results_, std::vector<Content>{"first second"});
}

TEST_F(PipeTest, MayBeEmpty) {
    open();
    writeEnd_.close();

    EXPECT_TRUE(test::waitUntil([&] { return isDone(); }));
    EXPECT_EQ(results_, std::vector<Content>{""});
}

TEST_F(PipeTest, MayHoldMoreThanFitsIntoOneRead) {
    open();
    const std::string text(30'000, 'x');
    EXPECT_TRUE(write(text));
    writeEnd_.close();

    EXPECT_TRUE(test::waitUntil([&] { return isDone(); }));
    EXPECT_EQ(results_, std::vector<Content>{text});
}

TEST_F(PipeTest, IsGivenUpIfNothingComesInTime) {
    open(10ms);

    EXPECT_TRUE(test::waitUntil([&] { return isDone(); }));
    EXPECT_EQ(results_, std::vector<Content>{std::nullopt});

    // A program that writes then fails at once, and does not wait for a reader.
    EXPECT_FALSE(write("late"));
    EXPECT_EQ(errno, EPIPE);
    test::deliverPendingEvents();
    EXPECT_EQ(results_.size(), 1U);
}

TEST_F(PipeTest, IsGivenUpIfItDoesNotEndInTime) {
    open(10ms);
    EXPECT_TRUE(write("some"));

    EXPECT_TRUE(test::waitUntil([&] { return isDone(); }));
    EXPECT_EQ(results_, std::vector<Content>{std::nullopt});
}

TEST_F(PipeTest, IsGivenUpIfTooMuchComes) {
    constexpr std::chrono::hours never{1};
    open(never);
    const std::string part(4096, 'x');
    std::size_t written = 0;
    while (!isDone() && written < PipeReader::maximumBytes * 2) {
        while (write(part))
            written += part.size();
        test::deliverPendingEvents();
    }

    EXPECT_EQ(results_, std::vector<Content>{std::nullopt});
    EXPECT_GT(written, PipeReader::maximumBytes);
}

TEST_F(PipeTest, ReportsNothingOnceItsReaderIsGone) {
    open(1ms);
    EXPECT_TRUE(write("text"));
    reader_.reset();

    test::deliverPendingEvents();
    EXPECT_FALSE(isDone());
}

TEST_F(PipeTest, LetsItsReaderBeDestroyedWithTheResult) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
    writeEnd_ = xdg::FileDescriptor{ends[1]};
    reader_ = std::make_unique<PipeReader>(xdg::FileDescriptor{ends[0]}, [this](Content content) {
        results_.push_back(std::move(content));
        reader_.reset();
    });
    EXPECT_TRUE(write("text"));
    writeEnd_.close();

    EXPECT_TRUE(test::waitUntil([&] { return isDone(); }));
    EXPECT_EQ(reader_, nullptr);
}

}
}
