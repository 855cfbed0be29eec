/// Exports an object with one interface on a bus, for the lifetime of this handle.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "GLib/GLibHandles.hpp"

#include <functional>
#include <memory>
#include <string>

namespace vireline::xdg {

class DBusObject : private NonCopyable {
public:
    struct Handlers {
        /// Must reply to the call through `invocation`, immediately or later.
        std::function<void(const std::string& method, GVariant* parameters,
                           GDBusMethodInvocation* invocation)>
            call;
        /// The value of a property, as a floating reference; called only for properties of the
        /// interface.
        std::function<GVariant*(const std::string& property)> get;
    };

    /// `interfaceXML` is introspection data that describes just this interface.
    DBusObject(GDBusConnection* bus, std::string path, const char* interfaceXML, Handlers handlers);
    ~DBusObject();

    /// Emits a signal of the interface. Takes ownership of a floating value; `parameters` may be
    /// null.
    void emit(const char* signal, GVariant* parameters) const;

private:
    GObjectHandle<GDBusConnection> bus_;
    std::string path_;
    std::string interfaceName_;
    guint registration_ = 0;
};

}
