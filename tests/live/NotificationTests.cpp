// Notifications as the desktop's server receives them.
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>
#include <QDBusVirtualObject>

#include <csignal>
#include <fstream>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

constexpr const char* service = "org.freedesktop.Notifications";
constexpr const char* objectPath = "/org/freedesktop/Notifications";

class NotificationServer final : public QDBusVirtualObject {
public:
    explicit NotificationServer(const std::string& address)
        : m_voice(address, "notification server", service) {
        m_voice.bus().registerVirtualObject(objectPath, this, QDBusConnection::SingleNode);
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == "GetCapabilities") {
            bus.send(message.createReply(QStringList{"actions", "body-markup"}));
        } else if (message.member() == "Notify") {
            shown = message.arguments();
            bus.send(message.createReply(7U));
        } else if (message.member() == "CloseNotification") {
            closed = message.arguments().value(0).toUInt();
            bus.send(message.createReply());
        }
        return true;
    }

    QVariantList shown;
    uint closed = 0;

private:
    BusVoice m_voice;
};

TEST(Notifications, TellOfAFileThatCannotBeReadAndAreWithdrawnAtTheEnd) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    const auto eventually = [](const std::function<bool()>& condition) {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return condition();
        });
    };
    VantrelDesk desk("openbox");
    NotificationServer server(desk.bus().address());
    std::filesystem::create_directories(desk.vantrelFolder());
    std::ofstream(desk.vantrelFolder() / "scenes.json") << "not JSON & <b>";
    auto run = desk.startVantrel();
    ASSERT_TRUE(eventually([&] { return !server.shown.isEmpty(); }));
    EXPECT_EQ(server.shown.value(0).toString(), "Vantrel");
    EXPECT_EQ(server.shown.value(1).toUInt(), 0U);
    EXPECT_THAT(server.shown.value(4).toString().toStdString(), testing::HasSubstr("scenes.json"));
    EXPECT_EQ(server.shown.value(5).toStringList(), (QStringList{"default", "Show", "0", "Show"}));
    // It answers after it has received the reply to its notification.
    desk.done({"status"});
    EXPECT_EQ(run.endedBy(SIGTERM).code, 0);
    EXPECT_TRUE(eventually([&] { return server.closed == 7; }));
}

} // namespace
} // namespace vantrel::live
