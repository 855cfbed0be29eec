#include "ProgramWindows/WindowShell.hpp"

#include <malloc.h>

#include <QApplication>
#include <QPixmapCache>
#include <utility>

namespace vireline::xdg {
namespace {

/// Returns the memory used for drawing to the system, since a closed window is rarely opened again
/// soon.
void giveMemoryBack() {
    QPixmapCache::clear();
    malloc_trim(0);
}

}

WindowShell::WindowShell(WindowStyle style, const WindowContext& context, Populate populate,
                         Cleared cleared)
    : style_(std::move(style))
    , context_(context)
    , populate_(std::move(populate))
    , cleared_(std::move(cleared)) {}

void WindowShell::Discard::operator()(QtProgramWindow* window) const {
    window->onClosed = nullptr;
    window->hide();
    QObject::connect(window, &QObject::destroyed, qApp, giveMemoryBack);
    window->deleteLater();
}

void WindowShell::makeKeyAndOrderFront() {
    if (!window_)
        open();
    window_->bringToFront();
}

void WindowShell::open() {
    window_.reset(std::make_unique<QtProgramWindow>(style_, context_).release());
    window_->onClosed = [this] { closed(); };
    populate_(*window_);
    if (corner_)
        window_->placeAt(*corner_);
    else
        window_->placeInTheMiddle();
}

void WindowShell::close() {
    if (window_)
        window_->close();
}

void WindowShell::closed() {
    corner_ = window_->pos();
    cleared_();
    window_.reset();
}

}
