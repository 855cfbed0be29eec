/// The program's icon.
#pragma once

#include <QIcon>
#include <QPixmap>

namespace vireline::xdg::ProgramIcon {

/// In the sizes that window managers use.
[[nodiscard]] QIcon icon();

/// A square of `side` pixels.
[[nodiscard]] QPixmap picture(int side);

}
