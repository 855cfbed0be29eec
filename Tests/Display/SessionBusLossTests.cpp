/// What Qt asks of a session bus that has gone, in the environment that the program sets up for it.
#include "Display/WindowTest.hpp"
#include "VirtualDesktop/BusClient.hpp"
#include "VirtualDesktop/ChildProcess.hpp"
#include "VirtualDesktop/Waiting.hpp"

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

    /// Listens to a program of that name, which Qt has to ask the bus for; in a thread, since Qt
    /// waits for the answer.
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

    /// Once the bus is there: an attempt that fails stays under its name.
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
    // Asks as soon as the first has no answer, before Qt hears that there is nobody to ask.
    const Listening next{connection_, QStringLiteral("org.example.Second")};
    ASSERT_TRUE(eventually([&] { return next.waits(); }));
    bus_.signal(SIGKILL);
    EXPECT_TRUE(bus_.waitForExit());
}

}
}
