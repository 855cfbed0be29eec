/// Base of the tests of input from the fake compositor to a surface of ours.
#pragma once

#include "Connection/OwnConnection.hpp"
#include "Input/Seat.hpp"
#include "Input/SurfaceInput.hpp"
#include "Linux/EventLoop.hpp"
#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/FakeSeat.hpp"
#include "Wayland/Fakes/FakeShell.hpp"

#include <gtest/gtest.h>
#include <wayland-client.h>

#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace vireline::wayland {

/// Notes what happens to a surface, such as "moved 3 4".
class RecordedInput final : public SurfaceInput {
public:
    using Happenings = std::vector<std::string>;

    /// What has happened since the previous call.
    [[nodiscard]] Happenings take() { return std::exchange(happenings_, {}); }
    [[nodiscard]] bool isEmpty() const noexcept { return happenings_.empty(); }

    /// Whether drags can be dropped, and whether drops are accepted.
    bool canDrop = true;
    bool accepts = true;
    bool follows = true;

private:
    [[nodiscard]] double pixelsPerPoint() const override { return 1; }
    [[nodiscard]] bool followsPointer() const override { return follows; }
    void pointerEntered(QPointF at) override { note("entered", at); }
    void pointerMoved(QPointF at) override { note("moved", at); }
    void pointerLeft() override { happenings_.emplace_back("left"); }
    void buttonPressed(PointerButton button) override {
        happenings_.push_back("pressed " + nameOf(button));
    }
    void buttonReleased(PointerButton button) override {
        happenings_.push_back("released " + nameOf(button));
    }
    void dragEntered(const std::vector<std::string>& urls) override {
        happenings_.emplace_back("drag entered");
        for (const std::string& url : urls)
            happenings_.back() += ' ' + url;
    }
    [[nodiscard]] bool dragMoved(QPointF at) override {
        note("drag moved", at);
        return canDrop;
    }
    void dragLeft() override { happenings_.emplace_back("drag left"); }
    [[nodiscard]] bool dragDropped(QPointF at) override {
        note("dropped", at);
        return accepts;
    }

    static std::string nameOf(PointerButton button) {
        switch (button) {
        case PointerButton::left:
            return "left";
        case PointerButton::right:
            return "right";
        case PointerButton::middle:
            return "middle";
        }
        return "unknown";
    }
    void note(const char* what, QPointF at) {
        std::ostringstream text;
        text << what << ' ' << at.x() << ' ' << at.y();
        happenings_.push_back(text.str());
    }

    Happenings happenings_;
};

/// Fakes of further globals must be members of the derived class; `open` connects to them.
class SeatTest : public testing::Test {
protected:
    using Happenings = RecordedInput::Happenings;

    SeatTest() { test::testApplication(); }
    void TearDown() override {
        surface_.reset();
        surfaces_.reset();
        seat_.reset();
        own_.reset();
    }

    void open() {
        own_.emplace(compositor_.connect());
        seat_.emplace(*own_);
        watch_ = own_->observeReads([this] { ++reads_; });
        surfaces_ = own_->globals().bind<wl_compositor>(wl_compositor_interface, 4);
        surface_ = makeSurface();
        seat_->surfaces().add(*surface_, input_);
        sync();
        test::deliverPendingEvents();
    }
    [[nodiscard]] Proxy<wl_surface> makeSurface() const {
        return Proxy<wl_surface>{wl_compositor_create_surface(surfaces_.get())};
    }
    /// Waits until the compositor has answered everything, without the event loop.
    void sync() {
        wl_display_roundtrip(own_->globals().display());
        wl_display_roundtrip(own_->globals().display());
    }
    /// Makes the compositor send events together, and waits until they have been read.
    void receive(const std::function<void()>& events) {
        compositor_.send(events);
        awaitRead();
    }
    /// Waits until everything has been read that has arrived by now.
    void awaitRead() const {
        const int before = reads_;
        EXPECT_TRUE(test::waitUntil([&] { return reads_ > before; }));
    }

    FakeCompositor compositor_;
    FakeShell shell_{compositor_};
    FakeSeat fake_{compositor_};
    std::optional<OwnConnection> own_;
    std::optional<Seat> seat_;
    Subscription watch_;
    int reads_ = 0;
    Proxy<wl_compositor> surfaces_;
    Proxy<wl_surface> surface_;
    RecordedInput input_;
};

}
