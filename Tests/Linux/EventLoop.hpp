/// A real event loop without a display, for tests of what runs on one. Waits are always for a
/// condition, with a timeout.
#pragma once

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTimer>
#include <array>
#include <functional>

namespace vireline::test {

/// The test program's only application object, created on first use.
inline QApplication& testApplication() {
    static std::array<char, 12> name{"LinuxTests"};
    static std::array<char, 10> option{"-platform"};
    static std::array<char, 10> platform{"offscreen"};
    static std::array<char*, 4> arguments{name.data(), option.data(), platform.data(), nullptr};
    static int count = 3;
    // Never destroyed, because Qt's statics, which its destructor needs, may be destroyed first.
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory)
    static auto& application = *new QApplication{count, arguments.data()};
    return application;
}

/// Runs the loop until `condition` holds; returns false after twenty seconds, which is long enough
/// for a busy machine.
inline bool waitUntil(const std::function<bool()>& condition) {
    testApplication();
    bool isLate = false;
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, [&] { isLate = true; });
    limit.start(std::chrono::seconds{20});
    while (!condition()) {
        if (isLate)
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Processes pending events and what they trigger, without waiting for more.
inline void deliverPendingEvents() {
    testApplication();
    QCoreApplication::processEvents();
    constexpr int mostRounds = 10'000;
    for (int round = 0; round < mostRounds; ++round) {
        if (!QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents))
            return;
    }
}

}
