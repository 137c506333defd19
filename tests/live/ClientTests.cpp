// vantrelctl and a program that is slow to reply or does not reply at all.
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>
#include <QDBusVirtualObject>

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

using ::testing::HasSubstr;

// Stands in for vantrel: replies to a call only after the second "Ping". It replies to nothing while the test
// processes no events.
class SlowProgram final : public QDBusVirtualObject {
public:
    explicit SlowProgram(const std::string& address)
        : m_voice(address, "slow program", "org.vantrel.Vantrel") {
        m_voice.bus().registerVirtualObject("/org/vantrel/Vantrel", this, QDBusConnection::SingleNode);
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() != "Ping") {
            m_waiting = message;
            return true;
        }
        bus.send(message.createReply(QString("{}")));
        if (++m_pings == 2) {
            bus.send(m_waiting.createReply(QString(R"({"elapsed": 7, "items": []})")));
        }
        return true;
    }

    [[nodiscard]] int pings() const { return m_pings; }

private:
    BusVoice m_voice;
    QDBusMessage m_waiting;
    int m_pings = 0;
};

TEST(Client, WaitsForASlowProgramAndGivesUpOnASilentOne) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    VantrelDesk desk("");
    const SlowProgram program(desk.bus().address());
    ProgramRun restore(desk, {VANTRELCTL_PROGRAM, "restore"});
    EXPECT_TRUE(waitUntil([&] {
        QCoreApplication::processEvents();
        return !restore.process().isRunning();
    }));
    EXPECT_THAT(restore.output(), HasSubstr("The saved layout contains no windows."));
    EXPECT_EQ(program.pings(), 2);
    EXPECT_THAT(desk.refused({"status"}), HasSubstr("vantrel is running but does not reply"));
}

} // namespace
} // namespace vantrel::live
