/// Notes what clients request of objects of the fake compositor, and creates the objects that they
/// ask for.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

struct wl_interface;
struct wl_message;
struct wl_resource;
union wl_argument;

namespace vireline::wayland {

class FakeCompositor;

/// Everything but `take` belongs to the compositor's thread.
class RequestLog : private NonCopyable {
public:
    using Requests = std::vector<std::string>;

    /// Valid only while it is handled.
    struct Request {
        wl_resource* object;
        std::string_view name;
        const wl_argument* arguments;
        /// The object that it has created; null if it creates none.
        wl_resource* created;
    };

    explicit RequestLog(FakeCompositor& compositor) : compositor_(compositor) {}
    ~RequestLog();

    /// Notes requests under the object's name; if that is empty, they are only handled.
    void watch(wl_resource* object, const std::string& name);
    /// The same under the name of the object's interface, which created objects get too.
    void watch(wl_resource* object);

    /// Called with each request that has been noted, before its object is destroyed.
    std::function<void(const Request&)> onRequest = [](const Request& /*request*/) {};

    /// The requests since the previous call: the object's name, the request's, and its
    /// numbers, such as "wl_region add 0 0 8 8".
    [[nodiscard]] Requests take();

private:
    static int handle(const void* implementation, void* target, std::uint32_t opcode,
                      const wl_message* message, wl_argument* arguments);
    void note(wl_resource* object, const wl_message& message, const wl_argument* arguments);

    FakeCompositor& compositor_;
    std::map<wl_resource*, std::string> names_;
    Requests requests_;
};

}
