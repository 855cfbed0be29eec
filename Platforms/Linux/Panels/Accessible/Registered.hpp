/// Interfaces that assistive technology can ask for by number. Qt's registry owns them; a handle
/// takes its own out again when it goes.
#pragma once

#include <QAccessible>
#include <memory>
#include <utility>

namespace vireline::x11 {

struct Unregister {
    QAccessible::Id id = 0;

    void operator()(QAccessibleInterface* /*owned*/) const {
        QAccessible::deleteAccessibleInterface(id);
    }
};

template <class Interface>
using Registered = std::unique_ptr<Interface, Unregister>;

/// There may be one for each object at a time.
template <class Interface, class... Arguments>
[[nodiscard]] Registered<Interface> makeRegistered(Arguments&&... arguments) {
    Interface* const made =
        std::make_unique<Interface>(std::forward<Arguments>(arguments)...).release();
    return Registered<Interface>{made, {QAccessible::registerAccessibleInterface(made)}};
}

}
