/// What programs tell assistive technology of their own accord, for as long as this listens.
#pragma once

#include "VirtualDesktop/BusClient.hpp"

#include <string>
#include <vector>

namespace vireline::desktop {

class AccessibleEvents {
public:
    /// Programs tell only what somebody has registered for; those that run hear of it a little
    /// later.
    explicit AccessibleEvents(const std::string& address);
    AccessibleEvents(const AccessibleEvents&) = delete;
    AccessibleEvents& operator=(const AccessibleEvents&) = delete;
    AccessibleEvents(AccessibleEvents&&) = delete;
    AccessibleEvents& operator=(AccessibleEvents&&) = delete;
    ~AccessibleEvents();

    /// Whether an object has told an event of this kind, such as "ChildrenChanged add".
    [[nodiscard]] bool has(const BusObject& source, const std::string& kind);

private:
    struct Event {
        BusObject source;
        std::string kind;

        bool operator==(const Event&) const = default;
    };

    static void note(GDBusConnection* connection, const char* sender, const char* path,
                     const char* interfaceName, const char* member, GVariant* parameters,
                     gpointer self);

    BusClient bus_;
    guint subscription_;
    std::vector<Event> events_;
};

}
