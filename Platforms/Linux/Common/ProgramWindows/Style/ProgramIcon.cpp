#include "ProgramWindows/Style/ProgramIcon.hpp"

#include "ProgramWindows/Style/EmbeddedPicture.hpp"

namespace vireline::xdg::ProgramIcon {

QIcon icon() {
    QIcon icon;
    for (const int side : {16, 32, 48, 128})
        icon.addPixmap(picture(side));
    return icon;
}

QPixmap picture(int side) {
    return QPixmap::fromImage(EmbeddedPicture::render(QStringLiteral("icons/vireline.svg"), side));
}

}
