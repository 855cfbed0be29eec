/// Notifies assistive technology of changes.
#pragma once

#include <QAccessible>

namespace vireline::xdg::AccessibleEvents {

inline void notify(QAccessibleInterface& about, QAccessible::Event what) {
    QAccessibleEvent event{&about, what};
    QAccessible::updateAccessibility(&event);
}

}
