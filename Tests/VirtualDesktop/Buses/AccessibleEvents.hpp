/// The accessibility events that programs emit during the lifetime of this object.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "VirtualDesktop/Buses/BusClient.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline::desktop {

class AccessibleEvents : private NonCopyable {
public:
    /// Programs emit only events that a client has registered for; running programs notice a
    /// registration with a short delay.
    explicit AccessibleEvents(const std::string& address);
    ~AccessibleEvents();

    /// Whether an object has emitted an event of this kind, such as "ChildrenChanged add".
    [[nodiscard]] bool has(const BusObject& source, const std::string& kind);
    /// The object that has emitted the last event of this kind, if any.
    [[nodiscard]] std::optional<BusObject> lastSource(const std::string& kind);

private:
    struct Event {
        BusObject source;
        std::string kind;

        bool operator==(const Event&) const = default;
    };

    /// Receives the events that have arrived.
    static void update();
    static void note(GDBusConnection* connection, const char* sender, const char* path,
                     const char* interfaceName, const char* member, GVariant* parameters,
                     gpointer self);

    BusClient bus_;
    guint subscription_;
    std::vector<Event> events_;
};

}
