#include "Wayland/Fakes/FakeCompositor.hpp"

#include <sys/socket.h>
#include <unistd.h>
#include <wayland-client-core.h>
#include <wayland-server-core.h>

#include <array>
#include <condition_variable>
#include <list>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

namespace vireline::wayland {
namespace {

struct Offer {
    wl_global* global = nullptr;
    const wl_interface* interface = nullptr;
    int bound = 0;
    FakeCompositor::Bound onBound;
};

void bind(wl_client* client, void* data, std::uint32_t version, std::uint32_t id) {
    auto& offer = *static_cast<Offer*>(data);
    offer.bound = static_cast<int>(version);
    wl_resource* const object = wl_resource_create(client, offer.interface, offer.bound, id);
    if (offer.onBound)
        offer.onBound(object);
}

}

struct FakeCompositor::Server {
    wl_display* display = wl_display_create();
    /// By the interface; the nodes stay where they are.
    std::map<std::string, std::list<Offer>> offers;
    /// Only compared with others, since it may have gone.
    const wl_client* first = nullptr;
    std::array<int, 2> wakeUp{};
    std::mutex mutex;
    std::condition_variable done;
    const std::function<void()>* task = nullptr;
    wl_event_source* tasks = nullptr;
    bool isRunning = true;
};

FakeCompositor::FakeCompositor() : server_(std::make_unique<Server>()) {
    if (pipe(server_->wakeUp.data()) != 0)
        throw std::runtime_error{"no pipe"};
    server_->tasks = wl_event_loop_add_fd(
        wl_display_get_event_loop(server_->display), server_->wakeUp[0], WL_EVENT_READABLE,
        [](int file, std::uint32_t /*mask*/, void* data) {
            auto& server = *static_cast<Server*>(data);
            char byte = 0;
            if (read(file, &byte, 1) != 1)
                return 0;
            const std::scoped_lock lock{server.mutex};
            (*server.task)();
            server.task = nullptr;
            server.done.notify_one();
            return 0;
        },
        server_.get());
    thread_ = std::thread{[this] { serve(); }};
}

FakeCompositor::~FakeCompositor() {
    run([this] { server_->isRunning = false; });
    thread_.join();
    wl_event_source_remove(server_->tasks);
    wl_display_destroy_clients(server_->display);
    wl_display_destroy(server_->display);
    close(server_->wakeUp[0]);
    close(server_->wakeUp[1]);
}

void FakeCompositor::serve() {
    while (server_->isRunning) {
        wl_display_flush_clients(server_->display);
        wl_event_loop_dispatch(wl_display_get_event_loop(server_->display), -1);
    }
}

void FakeCompositor::run(const std::function<void()>& task) {
    std::unique_lock lock{server_->mutex};
    server_->task = &task;
    if (write(server_->wakeUp[1], "x", 1) != 1)
        throw std::runtime_error{"no thread"};
    server_->done.wait(lock, [this] { return server_->task == nullptr; });
}

void FakeCompositor::send(const std::function<void()>& events) {
    run(events);
    // The thread sends the events of one task before it starts the next.
    run([] {});
}

void FakeCompositor::offer(const wl_interface& interface, int version, Bound onBound) {
    run([&] {
        Offer& offer = server_->offers[interface.name].emplace_back();
        offer.interface = &interface;
        offer.onBound = std::move(onBound);
        offer.global = wl_global_create(server_->display, &interface, version, &offer, bind);
    });
}

void FakeCompositor::withdraw(const wl_interface& interface) {
    run([&] {
        auto& offers = server_->offers.at(interface.name);
        wl_global_destroy(offers.back().global);
        offers.pop_back();
    });
}

void FakeCompositor::die() {
    run([this] { wl_display_destroy_clients(server_->display); });
}

bool FakeCompositor::isFirst(const wl_client* client) const {
    return client == server_->first;
}

int FakeCompositor::boundVersion(const wl_interface& interface) {
    int version = 0;
    run([&] {
        if (const auto& offers = server_->offers[interface.name]; !offers.empty())
            version = offers.back().bound;
    });
    return version;
}

void FakeCompositor::offerMemory() {
    run([this] { wl_display_init_shm(server_->display); });
}

Proxy<wl_display> FakeCompositor::connect() {
    return Proxy<wl_display>{wl_display_connect_to_fd(makeSocket())};
}

int FakeCompositor::makeSocket() {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw std::runtime_error{"no sockets"};
    run([&] {
        const wl_client* const client = wl_client_create(server_->display, ends[0]);
        if (server_->first == nullptr)
            server_->first = client;
    });
    return ends[1];
}

}
