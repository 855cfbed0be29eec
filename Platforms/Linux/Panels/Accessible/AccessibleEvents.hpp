/// Notifies assistive technology of changes.
#pragma once

#include <QAccessible>

namespace vireline::x11::AccessibleEvents {

inline void notify(QAccessibleInterface& about, QAccessible::Event what) {
    QAccessibleEvent event{&about, what};
    QAccessible::updateAccessibility(&event);
}

}
