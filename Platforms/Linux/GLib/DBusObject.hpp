/// An object of this program on a bus, with one interface. Gone with this handle.
#pragma once

#include "GLib/GLibHandles.hpp"

#include <functional>
#include <memory>
#include <string>

namespace vireline::x11 {

class DBusObject {
public:
    struct Handlers {
        /// Must answer the call through `invocation`, then or later.
        std::function<void(const std::string& method, GVariant* parameters,
                           GDBusMethodInvocation* invocation)>
            call;
        /// The value of a property, floating; only properties of the interface are asked for.
        std::function<GVariant*(const std::string& property)> get;
    };

    /// `interfaceXML` describes the interface, and nothing else, as introspection data has it.
    DBusObject(GDBusConnection* bus, std::string path, const char* interfaceXML, Handlers handlers);
    DBusObject(const DBusObject&) = delete;
    DBusObject& operator=(const DBusObject&) = delete;
    DBusObject(DBusObject&&) = delete;
    DBusObject& operator=(DBusObject&&) = delete;
    ~DBusObject();

    /// Emits a signal of the interface; takes a floating value over, which may be null.
    void emit(const char* signal, GVariant* parameters) const;

private:
    GObjectHandle<GDBusConnection> bus_;
    std::string path_;
    std::string interfaceName_;
    guint registration_ = 0;
};

}
