// The program on a system bus where a stand-in for logind puts the machine to sleep and locks the session.
#include "tests/live/ProgramRun.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <array>
#include <fstream>
#include <gmock/gmock.h>
#include <poll.h>
#include <sstream>
#include <unistd.h>

namespace vantrel::live {
namespace {

constexpr const char* managerPath = "/org/freedesktop/login1";
constexpr const char* managerInterface = "org.freedesktop.login1.Manager";
constexpr const char* sessionPath = "/org/freedesktop/login1/session/_31";
constexpr const char* sessionInterface = "org.freedesktop.login1.Session";

class FakeLogind final : public QDBusVirtualObject {
public:
    explicit FakeLogind(const std::string& address)
        : m_bus(QDBusConnection::connectToBus(QString::fromStdString(address), "fake logind")) {
        m_bus.registerVirtualObject(managerPath, this, QDBusConnection::SubPath);
        m_bus.registerService("org.freedesktop.login1");
    }
    ~FakeLogind() override {
        QDBusConnection::disconnectFromBus("fake logind");
        releaseInhibitor();
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == "Inhibit") {
            std::array<int, 2> ends{};
            if (pipe(ends.data()) != 0) {
                return false;
            }
            releaseInhibitor();
            m_inhibitor = ends[0];
            m_inhibitedBy =
                message.arguments().value(0).toString() + " " + message.arguments().value(3).toString();
            bus.send(message.createReply(QVariant::fromValue(QDBusUnixFileDescriptor(ends[1]))));
            close(ends[1]);
        } else if (message.member() == "GetSession") {
            bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(sessionPath))));
            m_isAskedForSession = true;
        } else if (message.member() == "Get") {
            bus.send(message.createReply(QVariant::fromValue(QDBusVariant(false))));
        } else {
            return false;
        }
        return true;
    }

    void send(const char* path, const char* interface, const char* name, const QVariantList& arguments = {}) {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(arguments);
        m_bus.send(message);
    }
    void prepareForSleep(bool isGoing) { send(managerPath, managerInterface, "PrepareForSleep", {isGoing}); }
    void setLockedHint(bool isLocked) {
        send(sessionPath, "org.freedesktop.DBus.Properties", "PropertiesChanged",
             {sessionInterface, QVariantMap{{"LockedHint", isLocked}}, QStringList{}});
    }

    // A program delays sleep: somebody still holds the other end.
    [[nodiscard]] bool isInhibited() const {
        pollfd state{.fd = m_inhibitor, .events = 0, .revents = 0};
        return m_inhibitor >= 0 && poll(&state, 1, 0) == 0;
    }
    [[nodiscard]] const QString& inhibitedBy() const { return m_inhibitedBy; }
    [[nodiscard]] bool isAskedForSession() const { return m_isAskedForSession; }

private:
    void releaseInhibitor() {
        if (m_inhibitor >= 0) {
            close(std::exchange(m_inhibitor, -1));
        }
    }

    QDBusConnection m_bus;
    int m_inhibitor = -1;
    QString m_inhibitedBy;
    bool m_isAskedForSession = false;
};

// How many lines of the program's log begin like this.
std::ptrdiff_t logged(const PrivateDesk& desk, const std::string& beginning) {
    std::ifstream stream(desk.home().dataFolder() / "Vantrel" / "app.log");
    std::ptrdiff_t count = 0;
    for (std::string line; std::getline(stream, line);) {
        count += line.find("] " + beginning) != std::string::npos ? 1 : 0;
    }
    return count;
}

TEST(SystemEvents, SleepIsDelayedUntilItIsHeardAndLocksStopLearning) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    PrivateDesk desk({{0, 0, 1280, 1024}}, "openbox");
    const SessionBus systemBus(desk.home(), desk.environment(), "system-bus");
    FakeLogind logind(systemBus.address());
    const auto eventually = [](const std::function<bool()>& condition) {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    };
    const auto locks = [&] { return logged(desk, "session locked: snapshots suspended"); };
    const auto unlocks = [&] { return logged(desk, "session unlocked: "); };

    const ProgramRun run(desk, vantrelCommand(), {"DBUS_SYSTEM_BUS_ADDRESS=" + systemBus.address()});
    ASSERT_TRUE(eventually([&] { return logind.isInhibited() && logind.isAskedForSession(); }))
        << run.output();
    EXPECT_EQ(logind.inhibitedBy(), "sleep delay");
    ASSERT_TRUE(eventually([&] { return logged(desk, "start: ") == 1; }));

    logind.prepareForSleep(true);
    EXPECT_TRUE(eventually([&] { return !logind.isInhibited(); }));
    EXPECT_EQ(logged(desk, "willSleep: snapshots suspended"), 1) << "before sleep was let go";
    logind.prepareForSleep(false);
    EXPECT_TRUE(eventually([&] { return logind.isInhibited(); })) << "for the next sleep";
    EXPECT_EQ(logged(desk, "didWake: checking pinned layout after settle"), 1);

    // The answer with the session may still be on its way to the program: ask until it hears.
    EXPECT_TRUE(eventually([&] {
        logind.send(sessionPath, sessionInterface, "Lock");
        return locks() == 1;
    }));
    logind.send(sessionPath, sessionInterface, "Unlock");
    EXPECT_TRUE(eventually([&] { return unlocks() == 1; }));
    logind.setLockedHint(true);
    EXPECT_TRUE(eventually([&] { return locks() == 2; }));
    logind.setLockedHint(false);
    EXPECT_TRUE(eventually([&] { return unlocks() == 2; }));

    // A screen saver that locks, and then dies.
    {
        auto saver = QDBusConnection::connectToBus(QString::fromStdString(desk.bus().address()), "saver");
        QDBusMessage active = QDBusMessage::createSignal("/", "org.xfce.ScreenSaver", "ActiveChanged");
        active.setArguments({true});
        EXPECT_TRUE(saver.send(active));
        EXPECT_TRUE(eventually([&] { return locks() == 3; }));
        QDBusConnection::disconnectFromBus("saver");
    }
    EXPECT_TRUE(eventually([&] { return unlocks() == 3; }));
    EXPECT_EQ(logged(desk, "system events: "), 0);
}

TEST(SystemEvents, WithoutASystemBusTheProgramSaysSoOnceAndGoesOn) {
    PrivateDesk desk({{0, 0, 1280, 1024}}, "openbox");
    const auto run = startVantrel(desk);
    EXPECT_EQ(logged(desk, "system events: sleep or locks may go unnoticed: there is no system bus"), 1);
}

} // namespace
} // namespace vantrel::live
