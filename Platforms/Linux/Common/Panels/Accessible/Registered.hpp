/// Accessibility interfaces that can be looked up by ID. Qt's registry owns them; this handle
/// removes its interface from the registry when destroyed.
#pragma once

#include <QAccessible>
#include <memory>
#include <utility>

namespace vireline::xdg {

struct Unregister {
    QAccessible::Id id = 0;

    void operator()(QAccessibleInterface* /*owned*/) const {
        QAccessible::deleteAccessibleInterface(id);
    }
};

template <class Interface>
using Registered = std::unique_ptr<Interface, Unregister>;

/// Only one per object at a time.
template <class Interface, class... Arguments>
[[nodiscard]] Registered<Interface> makeRegistered(Arguments&&... arguments) {
    Interface* const made =
        std::make_unique<Interface>(std::forward<Arguments>(arguments)...).release();
    return Registered<Interface>{made, {QAccessible::registerAccessibleInterface(made)}};
}

}
