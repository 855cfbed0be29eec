#include "Files/Log/StartLog.hpp"

#include "Foundation/DevLog.hpp"

#include <QCoreApplication>

namespace vireline::xdg {

void logOnceStarted(const std::string& message) {
    auto* const application = QCoreApplication::instance();
    if (DevLog::path() || application == nullptr) {
        DevLog::write(message);
        return;
    }
    QMetaObject::invokeMethod(
        application, [message] { DevLog::write(message); }, Qt::QueuedConnection);
}

}
