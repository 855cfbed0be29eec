/// Opens a menu beside the pointer. Programs know where the pointer is only while it is over one of
/// their surfaces, so this covers all displays with invisible ones; one of them is then told, gets
/// the menu as its popup, and closes it when there is a click elsewhere.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Panels/Menus/MenuPopup.hpp"
#include "Panels/Surfaces/InvisibleSurface.hpp"
#include "Panels/Surfaces/LayerShellContext.hpp"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

class QMenu;

namespace vireline::wayland {

class PointerMenu final : public QObject, private NonCopyable {
public:
    /// `onClosed` is called once, after the menu has been hidden, and may destroy this object. The
    /// others must outlive it, except the menu, which may be deleted after it has been hidden.
    PointerMenu(WaylandConnection& connection, QMenu& menu, std::function<void()> onClosed);
    ~PointerMenu() override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void cover(QScreen& screen);
    void openAt(InvisibleSurface& cover, QPoint place);
    void openWithoutPointer();
    void closeSoon();

    LayerShellContext context_;
    QPointer<QMenu> menu_;
    std::function<void()> onClosed_;
    std::vector<std::unique_ptr<InvisibleSurface>> covers_;
    /// Null before the pointer has been found.
    std::unique_ptr<MenuPopup> popup_;
    QTimer noPointer_;
};

}
