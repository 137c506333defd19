// The program on a system bus where a fake logind puts the machine to sleep and locks the session.
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <array>
#include <csignal>
#include <optional>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace vantrel::live {
namespace {

constexpr const char* managerPath = "/org/freedesktop/login1";
constexpr const char* managerInterface = "org.freedesktop.login1.Manager";
constexpr const char* sessionPath = "/org/freedesktop/login1/session/_31";
constexpr const char* sessionInterface = "org.freedesktop.login1.Session";

class FakeLogind final : public QDBusVirtualObject {
public:
    // The object before the name: a client that sees the name calls at once.
    explicit FakeLogind(const std::string& address) : voice(address, "fake logind") {
        voice.bus().registerVirtualObject(managerPath, this, QDBusConnection::SubPath);
        voice.bus().registerService("org.freedesktop.login1");
    }
    ~FakeLogind() override { releaseInhibitor(); }

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
        } else if (message.member() == "Get") {
            bus.send(message.createReply(QVariant::fromValue(QDBusVariant(false))));
        } else {
            return false;
        }
        return true;
    }

    // Whether a program delays sleep: it holds the other end of the pipe.
    [[nodiscard]] bool isInhibited() const {
        pollfd state{.fd = m_inhibitor, .events = 0, .revents = 0};
        return m_inhibitor >= 0 && poll(&state, 1, 0) == 0;
    }
    [[nodiscard]] const QString& inhibitedBy() const { return m_inhibitedBy; }

    BusVoice voice;

private:
    void releaseInhibitor() {
        if (m_inhibitor >= 0) {
            close(std::exchange(m_inhibitor, -1));
        }
    }

    int m_inhibitor = -1;
    QString m_inhibitedBy;
};

TEST(SystemEvents, SleepWaitsForVantrelAndLocksStopLearning) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    VantrelDesk desk("openbox");
    const SessionBus systemBus(desk.home(), desk.environment(), "system-bus");
    std::optional<FakeLogind> service(std::in_place, systemBus.address());
    FakeLogind& logind = *service;
    const auto eventually = [](const std::function<bool()>& condition) {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    };
    const auto prepareForSleep = [&](bool isGoing) {
        logind.voice.say(managerPath, managerInterface, "PrepareForSleep", {isGoing});
    };
    const auto setLockedHint = [&](bool isLocked) {
        logind.voice.sayChanged(sessionPath, sessionInterface, {{"LockedHint", isLocked}});
    };
    std::size_t count = 0;
    const auto isLocked = [&] { return desk.logged("session locked: snapshots suspended") == count; };
    const auto isUnlocked = [&] { return desk.logged("session unlocked: ") == count; };

    ProgramRun run(desk, {VANTREL_PROGRAM}, {"DBUS_SYSTEM_BUS_ADDRESS=" + systemBus.address()});
    ASSERT_TRUE(eventually([&] { return logind.isInhibited() && desk.logged("start: ") == 1; }))
        << run.output();
    EXPECT_EQ(logind.inhibitedBy(), "sleep delay");

    prepareForSleep(true);
    EXPECT_TRUE(eventually([&] { return !logind.isInhibited(); }));
    EXPECT_EQ(desk.logged("willSleep: snapshots suspended"), 1U) << "before it let the machine sleep";
    prepareForSleep(false);
    EXPECT_TRUE(eventually([&] { return logind.isInhibited(); })) << "before the next sleep";
    EXPECT_TRUE(eventually([&] { return desk.logged("didWake: checking pinned layout after settle") == 1; }));

    // vantrel may not know the session yet, so repeat the signal.
    ++count;
    EXPECT_TRUE(eventually([&] {
        logind.voice.say(sessionPath, sessionInterface, "Lock");
        return isLocked();
    }));
    logind.voice.say(sessionPath, sessionInterface, "Unlock");
    EXPECT_TRUE(eventually(isUnlocked));
    ++count;
    setLockedHint(true);
    EXPECT_TRUE(eventually(isLocked));
    setLockedHint(false);
    EXPECT_TRUE(eventually(isUnlocked));

    // A screen saver that locks and dies.
    ++count;
    {
        BusVoice saver(desk.bus().address(), "saver");
        saver.say("/", "org.xfce.ScreenSaver", "ActiveChanged", {true});
        EXPECT_TRUE(eventually(isLocked));
    }
    EXPECT_TRUE(eventually(isUnlocked));
    // One that ends before vantrel can watch it.
    ++count;
    kill(run.process().pid(), SIGSTOP);
    {
        BusVoice saver(desk.bus().address(), "hasty saver");
        saver.say("/", "org.gnome.ScreenSaver", "ActiveChanged", {true});
        // The bus replies once it has taken the signal.
        EXPECT_TRUE(saver.bus().interface()->isServiceRegistered("org.vantrel.Vantrel"));
    }
    kill(run.process().pid(), SIGCONT);
    EXPECT_TRUE(eventually(isUnlocked));
    EXPECT_TRUE(isLocked());

    service.reset();
    service.emplace(systemBus.address());
    EXPECT_TRUE(eventually([&] { return service->isInhibited(); })) << "by the restarted logind";
    ++count;
    EXPECT_TRUE(eventually([&] {
        service->voice.say(sessionPath, sessionInterface, "Lock");
        return isLocked();
    }));
    EXPECT_EQ(desk.logged("system events: "), 0U);
}

} // namespace
} // namespace vantrel::live
