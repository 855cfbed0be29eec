/// A client of a message bus: calls methods of others and waits for their answers.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace vireline::desktop {

struct VariantUnref {
    void operator()(GVariant* value) const noexcept { g_variant_unref(value); }
};

/// A value that a bus delivered.
using Variant = std::unique_ptr<GVariant, VariantUnref>;

/// Who answers a call.
struct BusObject {
    std::string name;
    std::string path;

    bool operator==(const BusObject&) const = default;
};

class BusClient {
public:
    /// Whether there is a bus at this address.
    [[nodiscard]] static bool answers(const std::string& address);

    /// Throws when there is none.
    explicit BusClient(const std::string& address);

    /// Takes floating parameters over, which may be null. Null when the call fails, as one to an
    /// object that is gone does.
    [[nodiscard]] Variant call(const BusObject& object, const char* interfaceName,
                               const char* method, GVariant* parameters) const;
    /// The same, where a failure is the test's end.
    [[nodiscard]] Variant callOrThrow(const BusObject& object, const char* interfaceName,
                                      const char* method, GVariant* parameters) const;

    /// Null when there is no such property.
    [[nodiscard]] Variant property(const BusObject& object, const char* interfaceName,
                                   const char* property) const;

    [[nodiscard]] bool hasOwner(const std::string& name) const;

    [[nodiscard]] GDBusConnection* connection() const noexcept { return connection_.get(); }

private:
    struct Unref {
        void operator()(gpointer object) const noexcept { g_object_unref(object); }
    };

    using Connection = std::unique_ptr<GDBusConnection, Unref>;

    /// Null when there is no bus.
    [[nodiscard]] static Connection connect(const std::string& address);

    Connection connection_;
};

}
