#include "Wayland/Fakes/RequestLog.hpp"

#include "Wayland/Fakes/FakeCompositor.hpp"

#include <wayland-server-core.h>

#include <cctype>
#include <cstdint>
#include <utility>

namespace vireline::wayland {
namespace {

/// The types of a request's arguments, without the protocol's remarks about them.
std::string typesOf(const wl_message& message) {
    std::string types{message.signature};
    std::erase_if(types,
                  [](unsigned char letter) { return letter == '?' || std::isdigit(letter) != 0; });
    return types;
}

int ignore(const void* /*implementation*/, void* /*target*/, std::uint32_t /*opcode*/,
           const wl_message* /*message*/, wl_argument* /*arguments*/) {
    return 0;
}

/// Null if the request creates no object.
wl_resource* createObject(wl_resource* parent, const wl_message& message,
                          const wl_argument* arguments) {
    const auto index = typesOf(message).find('n');
    if (index == std::string::npos)
        return nullptr;
    return wl_resource_create(wl_resource_get_client(parent), message.types[index],
                              wl_resource_get_version(parent), arguments[index].n);
}

}

/// Clients may still be connected.
RequestLog::~RequestLog() {
    compositor_.run([this] {
        for (const auto& [object, name] : names_)
            wl_resource_set_dispatcher(object, ignore, nullptr, nullptr, nullptr);
    });
}

void RequestLog::watch(wl_resource* object, const std::string& name) {
    names_[object] = name;
    wl_resource_set_dispatcher(object, handle, nullptr, this, [](wl_resource* gone) {
        static_cast<RequestLog*>(wl_resource_get_user_data(gone))->names_.erase(gone);
    });
}

void RequestLog::watch(wl_resource* object) {
    watch(object, wl_resource_get_class(object));
}

int RequestLog::handle(const void* /*implementation*/, void* target, std::uint32_t /*opcode*/,
                       const wl_message* message, wl_argument* arguments) {
    auto* const object = static_cast<wl_resource*>(target);
    auto& self = *static_cast<RequestLog*>(wl_resource_get_user_data(object));
    wl_resource* const created = createObject(object, *message, arguments);
    if (created != nullptr)
        self.watch(created);
    self.note(object, *message, arguments);
    const std::string_view name{message->name};
    self.onRequest({object, name, arguments, created});
    if (name == "destroy" || name == "release")
        wl_resource_destroy(object);
    return 0;
}

void RequestLog::note(wl_resource* object, const wl_message& message,
                      const wl_argument* arguments) {
    const std::string& name = names_.at(object);
    if (name.empty())
        return;
    std::string request = name + ' ' + message.name;
    const std::string types = typesOf(message);
    for (std::size_t i = 0; i < types.size(); ++i) {
        if (types[i] == 'i')
            request += ' ' + std::to_string(arguments[i].i);
        else if (types[i] == 'u')
            request += ' ' + std::to_string(arguments[i].u);
    }
    requests_.push_back(std::move(request));
}

RequestLog::Requests RequestLog::take() {
    Requests requests;
    compositor_.run([&] { requests = std::exchange(requests_, {}); });
    return requests;
}

}
