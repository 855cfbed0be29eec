#include "Connection/WaylandConnection.hpp"
#include "Displays/Outputs.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>
#include <wayland-server-core.h>
#include <xdg-output-unstable-v1-client-protocol.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {
namespace {

/// The events by their place in the protocols.
enum NamedOutputEvent : std::uint32_t {
    describedMode = 1,
    describedEnd = 2,
    describedScale = 3,
    describedName = 3,
};

/// Displays of one client. Events are dispatched by `sync` only.
class OutputsTest : public testing::Test {
protected:
    OutputsTest() {
        log_.onRequest = [this](const RequestLog::Request& request) {
            if (request.name == "get_xdg_output")
                named_[reinterpret_cast<wl_resource*>(request.arguments[1].o)] = request.created;
        };
    }
    void TearDown() override {
        watch_ = {};
        outputs_.reset();
        connection_.reset();
        display_.reset();
    }

    void offerNames() {
        compositor_.offer(zxdg_output_manager_v1_interface, 3,
                          [this](wl_resource* manager) { log_.watch(manager); });
    }
    /// The displays are numbered in the order in which they are plugged in.
    void plugIn() {
        compositor_.offer(wl_output_interface, 3, [this](wl_resource* output) {
            bound_.push_back(output);
            log_.watch(output);
        });
    }
    /// The display that was plugged in last.
    void unplug() { compositor_.withdraw(wl_output_interface); }

    void tellName(std::size_t number, const std::string& name) {
        compositor_.run([&] {
            wl_resource_post_event(named_.at(bound_.at(number)), describedName, name.c_str());
        });
        sync();
    }
    void tellScale(std::size_t number, int scale) {
        compositor_.run([&] {
            wl_resource_post_event(bound_.at(number), describedScale, scale);
            wl_resource_post_event(bound_.at(number), describedEnd);
        });
        sync();
    }
    void tellMode(std::size_t number, std::uint32_t flags, int milliHertz) {
        compositor_.run([&] {
            wl_resource_post_event(bound_.at(number), describedMode, flags, 800, 600, milliHertz);
            wl_resource_post_event(bound_.at(number), describedEnd);
        });
        sync();
    }

    void open() {
        display_ = compositor_.connect();
        connection_.emplace(display_.get());
        outputs_.emplace(*connection_);
        watch_ = outputs_->observe([this] { ++changes_; });
        sync();
    }
    void sync() const {
        wl_display_roundtrip(display_.get());
        wl_display_roundtrip(display_.get());
    }

    FakeCompositor compositor_;
    std::vector<wl_resource*> bound_;
    std::map<wl_resource*, wl_resource*> named_;
    RequestLog log_{compositor_};
    Proxy<wl_display> display_;
    std::optional<WaylandConnection> connection_;
    std::optional<Outputs> outputs_;
    Subscription watch_;
    int changes_ = 0;
};

TEST_F(OutputsTest, AreKnownByNameOnceThatIsTold) {
    offerNames();
    plugIn();
    open();
    EXPECT_EQ(outputs_->named("HDMI-A-1"), nullptr);
    EXPECT_EQ(outputs_->named(""), nullptr) << "one whose name is not known";

    tellName(0, "HDMI-A-1");

    ASSERT_NE(outputs_->named("HDMI-A-1"), nullptr);
    EXPECT_EQ(outputs_->named("HDMI-A-1")->name(), "HDMI-A-1");
    EXPECT_EQ(outputs_->named("HDMI-A-2"), nullptr);
    EXPECT_EQ(changes_, 1);
}

TEST_F(OutputsTest, HaveAScale) {
    offerNames();
    plugIn();
    open();
    tellName(0, "A");
    EXPECT_EQ(outputs_->named("A")->scale(), 1);

    const int before = changes_;
    tellScale(0, 2);
    EXPECT_EQ(outputs_->named("A")->scale(), 2);
    EXPECT_EQ(changes_, before + 1);

    tellScale(0, 0);
    EXPECT_EQ(outputs_->named("A")->scale(), 1);
}

TEST_F(OutputsTest, HaveAnIntervalBetweenFrames) {
    using std::chrono::microseconds;
    constexpr std::uint32_t current = 1;
    constexpr std::uint32_t preferred = 2;
    offerNames();
    plugIn();
    open();
    tellName(0, "A");
    EXPECT_EQ(outputs_->named("A")->interval(), microseconds{16'667});

    tellMode(0, current, 144'000);
    EXPECT_EQ(outputs_->named("A")->interval(), microseconds{6944});
    tellMode(0, preferred, 60'000);
    EXPECT_EQ(outputs_->named("A")->interval(), microseconds{6944}) << "not the current mode";
    tellMode(0, current, 0);
    EXPECT_EQ(outputs_->named("A")->interval(), microseconds{16'667});
}

TEST_F(OutputsTest, ReportThatOneIsGone) {
    offerNames();
    plugIn();
    open();
    tellName(0, "A");
    const int before = changes_;

    unplug();
    sync();

    EXPECT_EQ(outputs_->named("A"), nullptr);
    EXPECT_EQ(changes_, before + 1);
}

TEST_F(OutputsTest, MayBeTwo) {
    offerNames();
    plugIn();
    open();
    tellName(0, "A");
    const Output* const first = outputs_->named("A");
    plugIn();
    sync();
    tellName(1, "B");
    tellScale(1, 3);

    ASSERT_NE(outputs_->named("B"), nullptr);
    EXPECT_EQ(outputs_->named("B")->scale(), 3);
    EXPECT_EQ(outputs_->named("A"), first);
    EXPECT_EQ(first->scale(), 1);
    EXPECT_NE(outputs_->named("B")->get(), first->get());

    unplug();
    sync();
    EXPECT_EQ(outputs_->named("B"), nullptr);
    EXPECT_EQ(outputs_->named("A"), first);
}

TEST_F(OutputsTest, ComeBack) {
    offerNames();
    plugIn();
    open();
    tellName(0, "A");
    unplug();
    sync();

    plugIn();
    sync();
    tellName(1, "A");
    EXPECT_NE(outputs_->named("A"), nullptr);
}

TEST_F(OutputsTest, HaveNoNamesIfTheCompositorTellsNone) {
    plugIn();
    open();
    tellScale(0, 2);

    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(outputs_->named(""), nullptr);
    EXPECT_EQ(outputs_->named("A"), nullptr);
    EXPECT_TRUE(named_.empty());
}

}
}
