/// A client of a message bus that makes blocking method calls.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace vireline::desktop {

struct VariantUnref {
    void operator()(GVariant* value) const noexcept { g_variant_unref(value); }
};

/// A value received from a bus.
using Variant = std::unique_ptr<GVariant, VariantUnref>;

/// The destination of a call.
struct BusObject {
    std::string name;
    std::string path;

    bool operator==(const BusObject&) const = default;
};

class BusClient {
public:
    /// Whether there is a bus at this address.
    [[nodiscard]] static bool answers(const std::string& address);

    /// Throws if there is none.
    explicit BusClient(const std::string& address);

    /// Takes ownership of floating parameters, which may be null. Returns null if the call fails,
    /// for example because the object is gone.
    [[nodiscard]] Variant call(const BusObject& object, const char* interfaceName,
                               const char* method, GVariant* parameters) const;
    /// As above, but throws on failure.
    [[nodiscard]] Variant callOrThrow(const BusObject& object, const char* interfaceName,
                                      const char* method, GVariant* parameters) const;

    /// Null if there is no such property.
    [[nodiscard]] Variant property(const BusObject& object, const char* interfaceName,
                                   const char* property) const;

    [[nodiscard]] bool hasOwner(const std::string& name) const;

    [[nodiscard]] GDBusConnection* connection() const noexcept { return connection_.get(); }

private:
    struct Unref {
        void operator()(gpointer object) const noexcept { g_object_unref(object); }
    };

    using Connection = std::unique_ptr<GDBusConnection, Unref>;

    /// Null if there is no bus.
    [[nodiscard]] static Connection connect(const std::string& address);

    Connection connection_;
};

}
