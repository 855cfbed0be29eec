#include "Panels/DraggedFiles.hpp"

#include "Panels/DroppedText.hpp"

#include <QDropEvent>
#include <QMimeData>
#include <QSysInfo>
#include <string_view>

namespace vireline::wayland::DraggedFiles {

std::vector<std::string> urls(const QMimeData& content) {
    for (const std::string_view format : xdg::DroppedText::formats) {
        const QString name =
            QString::fromUtf8(format.data(), static_cast<qsizetype>(format.size()));
        if (!content.hasFormat(name))
            continue;
        const QByteArray text = content.data(name);
        return xdg::DroppedText::urls(format,
                                      {text.constData(), static_cast<std::size_t>(text.size())},
                                      QSysInfo::machineHostName().toStdString());
    }
    return {};
}

Qt::DropAction chosenAction(const QDropEvent& event) {
    return event.possibleActions().testFlag(Qt::CopyAction) ? Qt::CopyAction
                                                            : event.proposedAction();
}

}
