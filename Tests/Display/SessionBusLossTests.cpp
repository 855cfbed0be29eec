/// Qt's use of a session bus that has gone away, in the environment that the program sets up.
#include "Display/WindowTest.hpp"
#include "VirtualDesktop/Buses/BusClient.hpp"
#include "VirtualDesktop/Processes/ChildProcess.hpp"
#include "VirtualDesktop/Processes/Waiting.hpp"

#include <unistd.h>

#include <QDBusConnection>
#include <QObject>
#include <atomic>
#include <csignal>
#include <string>
#include <thread>

namespace vireline {
namespace {

using desktop::ChildProcess;

class SessionBusLoss : public test::WindowTest {
protected:
    static inline const QString connectionName = QStringLiteral("lost");

    void TearDown() override {
        QDBusConnection::disconnectFromBus(connectionName);
        WindowTest::TearDown();
    }

    /// Subscribes to a service name, for which Qt queries the bus. Runs in a thread, because Qt
    /// blocks until the reply.
    class Listening {
    public:
        Listening(QDBusConnection connection, const QString& name)
            : thread_([this, connection, name]() mutable {
                id_ = gettid();
                connection.connect(name, QStringLiteral("/"), QStringLiteral("org.example.Any"),
                                   QStringLiteral("changed"), &receiver_, SLOT(deleteLater()));
            }) {}

        [[nodiscard]] bool waits() const {
            const auto state = "/proc/self/task/" + std::to_string(id_) + "/stat";
            return id_ != 0 && desktop::readFile(state).contains(") S ");
        }

    private:
        QObject receiver_;
        std::atomic<pid_t> id_ = 0;
        std::jthread thread_;
    };

    /// Call once the bus is there, because a failed connection would be kept under its name.
    QDBusConnection connect() const {
        EXPECT_TRUE(desktop::eventually([&] { return desktop::BusClient::answers(address_); }));
        return QDBusConnection::connectToBus(QString::fromStdString(address_), connectionName);
    }

    std::string address_ = "unix:path=" + (desk().home().scratch() / "lost-bus").string();
    ChildProcess bus_{{"dbus-daemon",
                       {"--session", "--nofork", "--nopidfile", "--address=" + address_},
                       desk().environment(),
                       {},
                       {},
                       {}}};
    QDBusConnection connection_ = connect();
};

TEST_F(SessionBusLoss, IsOutlivedByTheNextQuestion) {
    ASSERT_TRUE(connection_.isConnected());
    bus_.signal(SIGSTOP);
    const Listening asking{connection_, QStringLiteral("org.example.First")};
    ASSERT_TRUE(eventually([&] { return asking.waits(); }));
    // Queries right after the first one fails, before Qt notices the lost connection.
    const Listening next{connection_, QStringLiteral("org.example.Second")};
    ASSERT_TRUE(eventually([&] { return next.waits(); }));
    bus_.signal(SIGKILL);
    EXPECT_TRUE(bus_.waitForExit());
}

}
}
