/// Drags and clipboards of another program, on the fake compositor.
#pragma once

#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

struct wl_resource;
struct wl_surface;

namespace vireline::wayland {

class FakeDrags : private NonCopyable {
public:
    /// Flags of the protocol.
    static constexpr std::uint32_t copy = 1;
    static constexpr std::uint32_t move = 2;
    static constexpr std::uint32_t ask = 4;

    explicit FakeDrags(FakeCompositor& compositor, int version = 3);
    ~FakeDrags();

    /// What the other program sends in a format; nothing at all for others.
    std::map<std::string, std::string> contents;
    /// The other program keeps pipes open without writing, until `answerPipes`.
    bool delaysAnswers = false;

    /// These belong to the compositor's thread; see `FakeCompositor::send`. Surfaces are the
    /// client's.
    void announce(const std::vector<std::string>& formats, std::uint32_t actions);
    void enter(wl_surface* surface, double x, double y);
    void motion(double x, double y);
    void leave();
    void drop();
    /// The compositor has chosen the action.
    void decide(std::uint32_t action);
    void offerClipboard();
    void answerPipes();

    /// The requests to offers since the previous call, such as "accept text/plain",
    /// "receive text/plain", "refuse", "set_actions 1 1", "finish" or "destroy".
    [[nodiscard]] RequestLog::Requests requests();

private:
    struct Pipe {
        std::string format;
        int end;
    };

    void handle(const RequestLog::Request& request);
    void note(const RequestLog::Request& request);

    FakeCompositor& compositor_;
    wl_resource* device_ = nullptr;
    wl_resource* offer_ = nullptr;
    std::vector<Pipe> pipes_;
    std::uint32_t serial_ = 0;
    RequestLog::Requests requests_;
    RequestLog log_{compositor_};
};

}
