#include "App/SessionInstance.hpp"
#include "Support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>

namespace vireline::wayland {
namespace {

class SessionInstanceTest : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<SessionInstance> claim(const std::string& session = "wayland-0") {
        return SessionInstance::claim(folder_.path(), session);
    }

    /// Lets the event loop handle what has arrived.
    void turn() { QCoreApplication::processEvents(QEventLoop::AllEvents); }

private:
    int count_ = 1;
    std::string name_ = "test";
    char* arguments_ = name_.data();
    std::unique_ptr<QCoreApplication> application_ =
        QCoreApplication::instance() == nullptr
            ? std::make_unique<QCoreApplication>(count_, &arguments_)
            : nullptr;
    test::TemporaryFolder folder_;
};

TEST_F(SessionInstanceTest, LetsOneProcessIn) {
    const auto first = claim();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(claim(), nullptr);
}

TEST_F(SessionInstanceTest, LetsTheNextInOnceTheFirstHasEnded) {
    auto first = claim();
    first.reset();
    EXPECT_NE(claim(), nullptr);
}

TEST_F(SessionInstanceTest, IsForOneSessionOnly) {
    const auto first = claim("wayland-0");
    EXPECT_NE(claim("wayland-1"), nullptr);
}

TEST_F(SessionInstanceTest, HearsOfFurtherStarts) {
    const auto first = claim();
    int starts = 0;
    const auto watch = first->observe([&] { ++starts; });
    EXPECT_EQ(claim(), nullptr);
    turn();
    EXPECT_EQ(starts, 1);
}

TEST_F(SessionInstanceTest, HearsOfThoseBeforeItListened) {
    const auto first = claim();
    EXPECT_EQ(claim(), nullptr);
    int starts = 0;
    const auto watch = first->observe([&] { ++starts; });
    turn();
    EXPECT_EQ(starts, 1);
}

TEST_F(SessionInstanceTest, GoesOnWithoutAFolder) {
    EXPECT_NE(SessionInstance::claim("/nonexistent", "wayland-0"), nullptr);
}

}
}
